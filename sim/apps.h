#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "os/processes.h"
#include "sim/handle_table.h"
#include "sim/registry.h"
#include "sim/scheduler.h"
#include "sim/ui.h"

namespace sim {

/// One activation of a packaged application, as it was asked for.
struct Activation {
  std::wstring appUserModelId, argument;
  std::uint64_t atMs = 0;
};

/// The packaged applications and the component that activates them.
class Apps {
 public:
  class Door;

  Apps(Scheduler& scheduler, Registry& registry, Processes& processes, Ui& ui)
      : scheduler_(scheduler), registry_(registry), processes_(processes), ui_(ui) {}

  /// The program that says whether the UI is installed, by its exit code.
  static constexpr auto kCheckTool = L"NorvTessaviewCheck.exe";
  static constexpr auto kUiId = L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe!7C31A0D4.TessaviewMaster";

  bool uiInstalled = true;
  /// How long after its activation the UI opens its main window; never without a value.
  std::optional<std::uint32_t> uiStartMs = 500;
  /// The UI opens its setup guide instead of its main window.
  bool uiOpensGuide = false;
  /// The shell's answer to being asked to open nothing; above 32 is a success.
  std::int64_t shellAnswer = 42;

  /// The UI's package is installed, or removed; the list of packages in the registry changes with it, and the laptop
  /// settles.
  void InstallUi() { SetInstalled(true); }
  void RemoveUi() { SetInstalled(false); }

  [[nodiscard]] const std::vector<Activation>& Activations() const { return activations_; }
  [[nodiscard]] std::size_t OpenManagers() const { return managers_.size(); }

 private:
  void SetInstalled(bool installed);

  struct Manager {};
  Scheduler& scheduler_;
  Registry& registry_;
  Processes& processes_;
  Ui& ui_;
  std::set<std::uint32_t> comThreads_;
  HandleTable<os::ActivationHandle, Manager> managers_;
  std::vector<Activation> activations_;
};

class Apps::Door : public Apps {
 public:
  using Apps::Apps;

  void JoinCom();
  os::Result<os::ActivationManager> CreateManager();
  os::Status Activate(os::ActivationHandle manager, const std::wstring& appUserModelId, const std::wstring& argument);
  void Release(os::ActivationHandle manager) noexcept { managers_.Close(manager); }
  void EndProcess();
};

}  // namespace sim

#include "sim/apps.h"

#include "sim/laptop.h"

namespace sim {
namespace {

constexpr std::uint32_t kInvalidHandle = 0x8007'0006;        // E_HANDLE
constexpr std::uint32_t kComNotInitialised = 0x8004'01F0;    // CO_E_NOTINITIALIZED
constexpr std::uint32_t kApplicationNotKnown = 0x8027'0254;  // E_APPLICATION_NOT_REGISTERED

}  // namespace

void Apps::InstallUi() {
  SetInstalled(true);
  Machine().Settle();
}

void Apps::RemoveUi() {
  SetInstalled(false);
  Machine().Settle();
}

void Apps::SetInstalled(bool installed) {
  auto& laptop = Machine();
  uiInstalled = installed;
  laptop.processes[Laptop::kCheckTool].exitCode = installed ? 1 : 0;
  const auto package = std::wstring(Registry::kPackages) + L"\\7C31A0D4.TessaviewMaster_1.0.0.0_x64__h2kq9vx81tmwe";
  if (installed) {
    laptop.registry.SetText(package, L"Path", L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster");
  } else {
    laptop.registry.RemoveKey(package);
  }
}

void Apps::JoinCom() {
  comThreads_.insert(Scheduler::ThreadId());
}

os::Result<os::ActivationManager> Apps::CreateManager() {
  if (!comThreads_.contains(Scheduler::ThreadId())) return os::Error{kComNotInitialised};
  return os::ActivationManager(managers_.Open({}));
}

os::Status Apps::Activate(os::ActivationHandle manager, const std::wstring& appUserModelId,
                          const std::wstring& argument) {
  if (managers_.Find(manager) == nullptr) return os::Error{kInvalidHandle};
  auto& laptop = Machine();
  activations_.push_back({appUserModelId, argument, laptop.NowMs()});
  if (appUserModelId != kUiId || !uiInstalled) return os::Error{kApplicationNotKnown};
  if (uiStartMs) {
    laptop.After(*uiStartMs, [this] {
      auto& ui = Machine().ui;
      if (ui.AnyWindow()) return;  // a second activation only brings the UI to the user
      uiOpensGuide ? ui.OpenGuide() : ui.Start();
    });
  }
  return os::Done{};
}

void Apps::EndProcess() {
  comThreads_.clear();
  managers_.CloseAll();
}

}  // namespace sim

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"
#include "sim/desktop.h"
#include "sim/processes.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"
#include "sim/ui_record.h"

namespace sim {

/// What goes with a text from the UI: a window or, in its place, a signed number, a rectangle, a point.
struct UiFields {
  std::uint64_t handle = 0;
  std::optional<std::int32_t> percent = {};  // the low half of the handle field
  os::Rect rect = {};
  os::Point point = {};
};

/// A copy-data record that one of the UI's windows took.
struct ReceivedRecord {
  std::wstring windowClass;
  std::uint64_t kind = 0;
  os::Bytes bytes;
};

/// The user-facing application: its windows, what it was told and what it asks for. It runs at a lower integrity level
/// than the controller, so that what it sends passes the message filter of the service window. All its windows share
/// one thread. Unless said otherwise the laptop settles after each story step.
class Ui {
 public:
  Ui(Scheduler& scheduler, Processes& processes, Desktop& desktop, ServiceWindow& window)
      : scheduler_(scheduler), processes_(processes), desktop_(desktop), window_(window) {}

  static constexpr auto kMainClass = L"Tessaview", kGuideClass = L"TessaviewQuickGuide",
                        kVideoClass = L"TessaviewVideoClass";
  static constexpr std::uint64_t kTextKind = 102, kRawInputKind = 101, kFileCopyKind = 104;

  // ---- its windows ----
  void Start() { Open(kMainClass); }
  void OpenGuide() { Open(kGuideClass); }
  void OpenVideo() { Open(kVideoClass); }
  void CloseGuide() { Close(kGuideClass); }
  /// The process dies with all its windows.
  void Die();
  /// The process ends, and its windows are still there for a while. Does not settle.
  void EndBeforeItsWindows(std::uint32_t lingerMs);
  [[nodiscard]] os::WindowHandle MainWindow() const;
  [[nodiscard]] bool Running() const { return MainWindow() != os::WindowHandle::None; }
  /// Whether any of the three windows is open.
  [[nodiscard]] bool AnyWindow() const;

  // ---- its thread ----
  /// Answers no message until Recover; the system holds it for hung.
  void Hang();
  void Recover();
  /// Answers messages only after `ms` milliseconds, without being held for hung. Does not settle.
  void Busy(std::uint32_t ms);

  // ---- what it got ----
  /// The texts, in the order they were taken; a record that is none shows as "(malformed record)".
  [[nodiscard]] std::vector<std::wstring> Received() const;
  /// The text records with all their fields; malformed ones left out.
  [[nodiscard]] std::vector<UiRecord> ReceivedTexts() const;
  /// The forwarded raw input reports.
  [[nodiscard]] std::vector<os::Bytes> ReceivedReports() const;
  [[nodiscard]] const std::vector<ReceivedRecord>& ReceivedRecords() const { return received_; }
  void ForgetReceived() { received_.clear(); }

  // ---- what its handlers do ----
  /// Called with each text it takes, before it answers. What is asked in there with AskBack is part of its handler.
  std::function<void(const std::wstring& text)> whenTold = {};
  void AskBack(const std::wstring& text, const UiFields& fields = {});
  /// Each of its handlers takes `ms` milliseconds from now on.
  void HandleFor(std::uint32_t ms) { handlingMs_ = ms; }

  // ---- what it asks ----
  void Send(const std::wstring& text, const UiFields& fields = {});
  void SendFileCopy(const std::wstring& command, const std::wstring& from, const std::wstring& to);
  /// Any record of any kind.
  void SendRaw(std::uint64_t kind, os::Bytes record);

 private:
  void Open(const wchar_t* className);
  void Close(const wchar_t* className);
  template <class Change>
  void ForEachWindow(Change change);
  [[nodiscard]] std::function<bool()> Take(const wchar_t* className, std::uint64_t kind, os::BytesView bytes);

  Scheduler& scheduler_;
  Processes& processes_;
  Desktop& desktop_;
  ServiceWindow& window_;
  bool hung_ = false;
  std::uint64_t busyUntilMs_ = 0;
  std::uint32_t handlingMs_ = 0;
  std::vector<std::shared_ptr<bool>> askedBack_;  // by the handler that runs, each true once it is answered
  std::vector<ReceivedRecord> received_;
};

}  // namespace sim

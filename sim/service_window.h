#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "os/service_window.h"

namespace sim {

/// The controller's hidden window with its queues and timers, and the message loops of the controller's threads.
///
/// A loop serves sent messages first, then posted ones, then the quit message, then timers, as the system does.
class ServiceWindow {
 public:
  using Message = std::function<void(const os::ServiceWindowEvents&)>;

  // ---- for tests ----
  [[nodiscard]] os::WindowHandle Handle() const { return handle_; }
  [[nodiscard]] bool Exists() const { return handle_ != os::WindowHandle::None; }

  /// Queues a message behind the other sent or posted ones; lost without a window.
  void Send(Message message);
  void Post(Message message);

  /// Whether a message from a process of lower integrity reaches the window.
  [[nodiscard]] bool LetsThrough(std::uint32_t message) const { return allowed_.contains(message); }

  /// The period of a timer in milliseconds; nothing when it does not run.
  [[nodiscard]] std::optional<std::uint32_t> TimerPeriod(std::uint64_t id) const;

  /// The user picks a menu item; the laptop settles.
  void PickMenuItem(std::uint16_t id);
  /// The dialogs that were shown; the user closes each at once.
  [[nodiscard]] const std::vector<std::uint16_t>& Dialogs() const { return dialogs_; }

  [[nodiscard]] bool SeesScalePerMonitor() const { return perMonitorDpi_; }
  [[nodiscard]] bool HearsOfSessions() const { return hearsOfSessions_; }

  // ---- the door ----
  os::Status RegisterClass(const os::WindowClass& windowClass, const os::ServiceWindowEvents& events);
  os::WindowHandle Create(const std::wstring& className, const std::wstring& title);
  void Close(os::WindowHandle window);
  void Allow(std::uint32_t message) { allowed_.insert(message); }
  void StartTimer(std::uint64_t id, std::uint32_t periodMs);
  void StopTimer(std::uint64_t id) { timers_.erase(id); }
  void HearOfSessions(bool hear) { hearsOfSessions_ = hear; }
  void ShowDialog(std::uint16_t id) { dialogs_.push_back(id); }
  void SeeScalePerMonitor() { perMonitorDpi_ = true; }
  int RunLoop();
  void Quit(int code);
  /// Waits until the calling thread has something to serve, and returns false when its loop is quit instead.
  bool AwaitWork(const std::function<bool()>& hasWork);
  /// A window message posted by its number.
  bool PostRaw(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);
  /// A copy-data record sent by a thread of this process: handled before this returns.
  void SendCopyData(std::uint64_t kind, os::BytesView record);

  /// The process is gone, and its window with it.
  void Reset() { *this = ServiceWindow(); }

 private:
  struct Timer {
    std::uint32_t periodMs = 0;
    std::uint64_t dueMs = 0;
  };

  [[nodiscard]] bool OwnedBy(std::uint32_t thread) const;
  [[nodiscard]] bool HasWork(std::uint32_t thread) const;
  [[nodiscard]] std::optional<std::uint64_t> NextTimer() const;
  bool ServeOneMessage();
  void ServeOneTimer();

  std::map<std::wstring, const os::ServiceWindowEvents*> classes_;
  const os::ServiceWindowEvents* events_ = nullptr;  // of the window's class
  os::WindowHandle handle_ = os::WindowHandle::None;
  std::uint32_t owner_ = 0;  // the thread whose loop serves the window
  std::deque<Message> sent_, posted_;
  std::map<std::uint64_t, Timer> timers_;
  bool timersChanged_ = false;
  std::map<std::uint32_t, int> quits_;  // quit messages by thread
  std::set<std::uint32_t> allowed_;
  std::vector<std::uint16_t> dialogs_;
  bool perMonitorDpi_ = false, hearsOfSessions_ = false;
};

}  // namespace sim

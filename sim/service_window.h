#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "os/service_window.h"
#include "sim/desktop.h"
#include "sim/displays.h"
#include "sim/file_system.h"
#include "sim/scheduler.h"
#include "sim/thread_loops.h"

namespace sim {

/// The controller's hidden window with its queues and timers, and the message loops of the controller's threads.
///
/// A loop serves sent messages first, then posted ones, then the quit message, then input, then timers, as the system
/// does. A wait of the window's thread inside the system serves what is sent, and one inside COM input as well.
class ServiceWindow {
 public:
  class Door;
  using Message = std::function<void(const os::ServiceWindowEvents&)>;

  ServiceWindow(Scheduler& scheduler, ThreadLoops& loops, const FileSystem& files, Displays& displays,
                Desktop& desktop);

  [[nodiscard]] os::WindowHandle Handle() const { return held_.handle; }
  [[nodiscard]] bool Exists() const { return held_.handle != os::WindowHandle::None; }

  /// Queues a message of another program, or input, behind the others of its class; lost without a window.
  void Send(Message message) { Queue(held_.sent, std::move(message)); }
  void Post(Message message) { Queue(held_.posted, std::move(message)); }
  void Input(Message message) { Queue(held_.input, std::move(message)); }

  /// Whether a message from a process of lower integrity reaches the window.
  [[nodiscard]] bool LetsThrough(std::uint32_t message) const { return held_.allowed.contains(message); }

  /// The period of a timer in milliseconds; nothing when it does not run.
  [[nodiscard]] std::optional<std::uint32_t> TimerPeriod(std::uint64_t id) const;

  /// A window message posted by its number. False without a window.
  bool PostRaw(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam);
  /// The user picks a menu item; the laptop settles.
  void PickMenuItem(std::uint16_t id);
  /// The dialogs that were shown; the user closes each at once.
  [[nodiscard]] const std::vector<std::uint16_t>& Dialogs() const { return held_.dialogs; }

  [[nodiscard]] bool SeesScalePerMonitor() const { return held_.perMonitorDpi; }
  [[nodiscard]] bool HearsOfSessions() const { return held_.hearsOfSessions; }

 private:
  struct Timer {
    std::uint32_t periodMs = 0;
    std::uint64_t dueMs = 0;
  };
  /// All that goes with the process.
  struct Held {
    std::map<std::wstring, const os::ServiceWindowEvents*> classes = {};
    const os::ServiceWindowEvents* events = nullptr;  // of the window's class
    os::WindowHandle handle = os::WindowHandle::None;
    std::uint32_t owner = 0;  // the thread whose loop serves the window
    std::deque<Message> sent = {}, posted = {}, input = {};
    std::map<std::uint64_t, Timer> timers = {};
    bool timersChanged = false;
    std::set<std::uint32_t> allowed = {};
    std::vector<std::uint16_t> dialogs = {};
    bool perMonitorDpi = false, hearsOfSessions = false;
  };

  [[nodiscard]] bool OwnedBy(std::uint32_t thread) const;
  void Close(os::WindowHandle window);
  void Queue(std::deque<Message>& queue, Message message);
  void HandOver(std::deque<Message>& queue, bool isSent);

  Scheduler& scheduler_;
  ThreadLoops& loops_;
  const FileSystem& files_;
  Desktop& desktop_;
  Held held_;
};

class ServiceWindow::Door : public ServiceWindow {
 public:
  using ServiceWindow::ServiceWindow, ServiceWindow::Close;

  os::Status RegisterClass(const os::WindowClass& windowClass, const os::ServiceWindowEvents& events);
  os::WindowHandle Create(const std::wstring& className, const std::wstring& title);
  void Allow(std::uint32_t message) { held_.allowed.insert(message); }
  void StartTimer(std::uint64_t id, std::uint32_t periodMs);
  void StopTimer(std::uint64_t id) { held_.timers.erase(id); }
  void HearOfSessions(bool hear) { held_.hearsOfSessions = hear; }
  void ShowDialog(std::uint16_t id) { held_.dialogs.push_back(id); }
  void SeeScalePerMonitor() { held_.perMonitorDpi = true; }
  /// Serves the calling thread until its loop is quit; returns the code of that.
  int RunLoop();
  /// A copy-data record sent by a thread of this process: handled before this returns true. What is not begun by the
  /// deadline is never handled.
  bool SendCopyData(std::uint64_t kind, os::BytesView record, std::optional<std::uint64_t> deadlineMs = {});

  void EndProcess() { held_ = {}; }

 private:
  [[nodiscard]] bool HasWork(std::uint32_t thread) const;
  [[nodiscard]] std::optional<std::uint64_t> NextTimer() const;
  bool ServeOne(std::deque<Message>& queue);
  void ServeOneTimer();
};

}  // namespace sim

#include "sim/service_window.h"

#include <algorithm>
#include <utility>

#include "sim/laptop.h"

namespace sim {
namespace {

constexpr std::uint32_t kClassExists = 1410;                                  // ERROR_CLASS_ALREADY_EXISTS
constexpr std::uint32_t kShortestTimerMs = 10;                                // USER_TIMER_MINIMUM
constexpr std::uint32_t kClose = 0x0010, kCommand = 0x0111, kTimer = 0x0113;  // WM_CLOSE, WM_COMMAND, WM_TIMER

}  // namespace

// ---- The window ----

os::Status ServiceWindow::RegisterClass(const os::WindowClass& windowClass, const os::ServiceWindowEvents& events) {
  if (!classes_.emplace(windowClass.name, &events).second) return os::Error{kClassExists};
  return os::Done{};
}

os::WindowHandle ServiceWindow::Create(const std::wstring& className, const std::wstring& title) {
  const auto found = classes_.find(className);
  if (found == classes_.end() || Exists()) return os::WindowHandle::None;
  events_ = found->second;
  owner_ = Scheduler::ThreadId();
  handle_ = Machine().desktop.Open(
      {.className = className, .title = title, .program = Machine().files.ownProgram, .visible = false});
  return handle_;
}

void ServiceWindow::Close(os::WindowHandle window) {
  if (window != handle_ || !Exists() || !OwnedBy(Scheduler::ThreadId())) return;
  events_->destroy();
  Machine().desktop.Close(std::exchange(handle_, os::WindowHandle::None));
  sent_.clear();
  posted_.clear();
  timers_.clear();
}

bool ServiceWindow::OwnedBy(std::uint32_t thread) const {
  return Exists() && owner_ == thread;
}

// ---- Messages in ----

void ServiceWindow::Send(Message message) {
  if (Exists()) sent_.push_back(std::move(message));
}

void ServiceWindow::Post(Message message) {
  if (Exists()) posted_.push_back(std::move(message));
}

bool ServiceWindow::PostRaw(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (!Exists()) return false;
  if (message == kClose) {
    Post([this](const auto&) { Close(handle_); });
  } else if (message == kCommand) {
    Post([wParam](const auto& events) { events.command(static_cast<std::uint16_t>(wParam)); });
  } else if (message == kTimer) {
    Post([wParam](const auto& events) { events.timer(wParam); });
  } else if (message == events_->hotKeyMessage) {
    Post([=](const auto& events) { events.hotKey(wParam, lParam); });
  } else if (message == events_->touchPadStatusMessage) {
    Post([=](const auto& events) { events.touchPadStatus(wParam, lParam); });
  }
  return true;
}

void ServiceWindow::SendCopyData(std::uint64_t kind, os::BytesView record) {
  if (OwnedBy(Scheduler::ThreadId())) {
    events_->copyData(kind, record);  // a window's own thread calls its procedure straight away
    return;
  }
  const auto handled = std::make_shared<bool>(false);
  Send([=, bytes = os::Bytes(record.begin(), record.end())](const auto& events) {
    events.copyData(kind, bytes);
    *handled = true;
  });
  Machine().scheduler.WaitUntil([=, this] { return *handled || !Exists(); });
}

void ServiceWindow::PickMenuItem(std::uint16_t id) {
  PostRaw(kCommand, id, 0);
  Machine().Settle();
}

// ---- Timers ----

void ServiceWindow::StartTimer(std::uint64_t id, std::uint32_t periodMs) {
  const auto period = std::max(periodMs, kShortestTimerMs);
  timers_[id] = {.periodMs = period, .dueMs = Machine().NowMs() + period};
  timersChanged_ = true;
}

std::optional<std::uint32_t> ServiceWindow::TimerPeriod(std::uint64_t id) const {
  const auto found = timers_.find(id);
  if (found == timers_.end()) return std::nullopt;
  return found->second.periodMs;
}

std::optional<std::uint64_t> ServiceWindow::NextTimer() const {
  std::optional<std::uint64_t> next;
  for (const auto& [id, timer] : timers_) next = std::min(next.value_or(timer.dueMs), timer.dueMs);
  return next;
}

void ServiceWindow::ServeOneTimer() {
  const auto now = Machine().NowMs();
  const auto due =
      std::find_if(timers_.begin(), timers_.end(), [now](const auto& timer) { return timer.second.dueMs <= now; });
  if (due == timers_.end()) return;
  due->second.dueMs = now + due->second.periodMs;
  events_->timer(due->first);
}

// ---- Message loops ----

bool ServiceWindow::HasWork(std::uint32_t thread) const {
  if (quits_.contains(thread)) return true;
  return OwnedBy(thread) && (!sent_.empty() || !posted_.empty() || timersChanged_);
}

bool ServiceWindow::ServeOneMessage() {
  auto& queue = sent_.empty() ? posted_ : sent_;
  if (!OwnedBy(Scheduler::ThreadId()) || queue.empty()) return false;
  const Message message = std::move(queue.front());
  queue.pop_front();
  message(*events_);
  return true;
}

int ServiceWindow::RunLoop() {
  const auto thread = Scheduler::ThreadId();
  auto& scheduler = Machine().scheduler;
  for (;;) {
    if (ServeOneMessage()) continue;
    if (const auto quit = quits_.find(thread); quit != quits_.end()) {
      const int code = quit->second;
      quits_.erase(quit);
      return code;
    }
    timersChanged_ = false;
    const auto timer = OwnedBy(thread) ? NextTimer() : std::nullopt;
    const bool work =
        scheduler.WaitUntil([this, thread] { return HasWork(thread); }, timer, Scheduler::Patience::Timer);
    if (!work && OwnedBy(thread)) ServeOneTimer();
  }
}

bool ServiceWindow::AwaitWork(const std::function<bool()>& hasWork) {
  const auto thread = Scheduler::ThreadId();
  Machine().scheduler.WaitUntil([&] { return hasWork() || quits_.contains(thread); });
  if (hasWork()) return true;
  quits_.erase(thread);
  return false;
}

void ServiceWindow::Quit(int code) {
  quits_[Scheduler::ThreadId()] = code;
}

}  // namespace sim

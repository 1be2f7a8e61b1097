#include "sim/service_window.h"

#include <algorithm>
#include <utility>

#include "sim/race_view.h"
#include "sim/system_errors.h"

namespace sim {
namespace {

constexpr std::uint32_t kShortestTimerMs = 10;                                // USER_TIMER_MINIMUM
constexpr std::uint32_t kClose = 0x0010, kCommand = 0x0111, kTimer = 0x0113;  // WM_CLOSE, WM_COMMAND, WM_TIMER

}  // namespace

ServiceWindow::ServiceWindow(Scheduler& scheduler, ThreadLoops& loops, const FileSystem& files, Displays& displays,
                             Desktop& desktop)
    : scheduler_(scheduler), loops_(loops), files_(files), desktop_(desktop) {
  displays.WhenLaidOut([this] {
    Send([](const auto& events) { events.displayChange(); });
    scheduler_.Serve();  // a program that changes the displays hears of it inside the call
  });
}

// ---- The window ----

os::Status ServiceWindow::Door::RegisterClass(const os::WindowClass& windowClass,
                                              const os::ServiceWindowEvents& events) {
  if (!held_.classes.emplace(windowClass.name, &events).second) return os::Error{kClassAlreadyExists};
  return os::Done{};
}

os::WindowHandle ServiceWindow::Door::Create(const std::wstring& className, const std::wstring& title) {
  const auto found = held_.classes.find(className);
  if (found == held_.classes.end() || Exists()) return os::WindowHandle::None;
  held_.events = found->second;
  held_.owner = Scheduler::ThreadId();
  const auto deliver = [this](std::deque<Message>& queue, bool isSent) {
    scheduler_.Deliver({[&queue] { return !queue.empty(); }, [&, isSent, this] { HandOver(queue, isSent); }}, !isSent);
  };
  deliver(held_.sent, true);
  deliver(held_.input, false);
  held_.handle =
      desktop_.Open({.className = className, .title = title, .program = files_.ownProgram, .visible = false});
  return held_.handle;
}

void ServiceWindow::Close(os::WindowHandle window) {
  if (window != held_.handle || !Exists() || !OwnedBy(Scheduler::ThreadId())) return;
  held_.events->destroy();
  desktop_.Close(std::exchange(held_.handle, os::WindowHandle::None));
  held_.sent.clear();
  held_.posted.clear();
  held_.input.clear();
  held_.timers.clear();
}

bool ServiceWindow::OwnedBy(std::uint32_t thread) const {
  return Exists() && held_.owner == thread;
}

// ---- Messages in ----

void ServiceWindow::Queue(std::deque<Message>& queue, Message message) {
  if (!Exists()) return;
  queue.push_back(std::move(message));
  if (!scheduler_.MachineActs()) Releases(&queue.back());
}

void ServiceWindow::HandOver(std::deque<Message>& queue, bool isSent) {
  Acquires(&queue.front());
  const Message message = std::move(queue.front());
  queue.pop_front();
  scheduler_.CallProgram([&] { message(*held_.events); }, isSent);
}

bool ServiceWindow::PostRaw(std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
  if (!Exists()) return false;
  if (message == kClose) {
    Post([this](const auto&) { Close(held_.handle); });
  } else if (message == kCommand) {
    Post([wParam](const auto& events) { events.command(static_cast<std::uint16_t>(wParam)); });
  } else if (message == kTimer) {
    Post([wParam](const auto& events) { events.timer(wParam); });
  } else if (message == os::kNotedMessage) {
    Post([](const auto& events) { events.noted(); });
  } else if (message == held_.events->hotKeyMessage) {
    Post([=](const auto& events) { events.hotKey(wParam, lParam); });
  } else if (message == held_.events->touchPadStatusMessage) {
    Post([=](const auto& events) { events.touchPadStatus(wParam, lParam); });
  }
  return true;
}

bool ServiceWindow::Door::SendCopyData(std::uint64_t kind, os::BytesView record,
                                       std::optional<std::uint64_t> deadlineMs) {
  if (OwnedBy(Scheduler::ThreadId())) {
    held_.events->copyData(kind, record);  // a window's own thread calls its procedure straight away
    return true;
  }
  struct Sent {
    bool isWithdrawn = false, isHandled = false;
  };
  const auto sent = std::make_shared<Sent>();
  Send([=, bytes = os::Bytes(record.begin(), record.end())](const auto& events) {
    if (sent->isWithdrawn) return;
    events.copyData(kind, bytes);
    Releases(sent.get());
    sent->isHandled = true;
  });
  scheduler_.WaitUntil([=, this] { return sent->isHandled || !Exists(); }, deadlineMs);
  Acquires(sent.get());
  sent->isWithdrawn = true;
  return sent->isHandled;
}

void ServiceWindow::PickMenuItem(std::uint16_t id) {
  PostRaw(kCommand, id, 0);
  scheduler_.SettleStory();
}

// ---- Timers ----

void ServiceWindow::Door::StartTimer(std::uint64_t id, std::uint32_t periodMs) {
  const auto period = std::max(periodMs, kShortestTimerMs);
  held_.timers[id] = {.periodMs = period, .dueMs = scheduler_.NowMs() + period};
  held_.timersChanged = true;
}

std::optional<std::uint32_t> ServiceWindow::TimerPeriod(std::uint64_t id) const {
  const auto found = held_.timers.find(id);
  if (found == held_.timers.end()) return std::nullopt;
  return found->second.periodMs;
}

std::optional<std::uint64_t> ServiceWindow::Door::NextTimer() const {
  std::optional<std::uint64_t> next;
  for (const auto& [id, timer] : held_.timers) next = std::min(next.value_or(timer.dueMs), timer.dueMs);
  return next;
}

void ServiceWindow::Door::ServeOneTimer() {
  const auto now = scheduler_.NowMs();
  const auto due = std::find_if(held_.timers.begin(), held_.timers.end(),
                                [now](const auto& timer) { return timer.second.dueMs <= now; });
  if (due == held_.timers.end()) return;
  due->second.dueMs = now + due->second.periodMs;
  scheduler_.CallProgram([&, id = due->first] { held_.events->timer(id); });
}

// ---- Message loops ----

bool ServiceWindow::Door::HasWork(std::uint32_t thread) const {
  if (loops_.IsQuit(thread)) return true;
  const bool none = held_.sent.empty() && held_.posted.empty() && held_.input.empty();
  return OwnedBy(thread) && (!none || held_.timersChanged);
}

bool ServiceWindow::Door::ServeOne(std::deque<Message>& queue) {
  if (!OwnedBy(Scheduler::ThreadId()) || queue.empty()) return false;
  HandOver(queue, &queue == &held_.sent);
  return true;
}

int ServiceWindow::Door::RunLoop() {
  const auto thread = Scheduler::ThreadId();
  for (;;) {
    if (ServeOne(held_.sent) || ServeOne(held_.posted)) continue;
    if (const auto code = loops_.TakeQuit()) return *code;
    if (ServeOne(held_.input)) continue;
    held_.timersChanged = false;
    const auto timer = OwnedBy(thread) ? NextTimer() : std::nullopt;
    const bool work =
        scheduler_.WaitUntil([this, thread] { return HasWork(thread); }, timer, Scheduler::Patience::Timer);
    if (!work && OwnedBy(thread)) ServeOneTimer();
  }
}

}  // namespace sim

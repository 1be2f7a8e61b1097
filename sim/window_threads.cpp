// The threads behind the windows: they are busy, hang, take messages and close their windows.

#include <algorithm>

#include "sim/desktop.h"

namespace sim {

using os::WindowHandle;

bool Desktop::Door::AllAnswer(const Concerned& concerned) const {
  return std::all_of(windows_.begin(), windows_.end(), [&](const Window& each) {
    return !concerned(each) || (each.responsive && each.busyUntilMs <= scheduler_.NowMs());
  });
}

bool Desktop::Door::AwaitThreads(const Concerned& concerned, std::optional<std::uint64_t> deadlineMs) {
  while (!AllAnswer(concerned)) {
    auto wakeMs = deadlineMs;  // or before, when one of them is no longer busy
    for (const auto& each : windows_) {
      if (!concerned(each) || each.busyUntilMs <= scheduler_.NowMs()) continue;
      wakeMs = std::min(wakeMs.value_or(each.busyUntilMs), each.busyUntilMs);
    }
    scheduler_.WaitUntil([&] { return AllAnswer(concerned); }, wakeMs);
    const bool inTime = wakeMs && scheduler_.NowMs() >= *wakeMs;  // false in a process that has ended
    if ((!inTime || wakeMs == deadlineMs) && !AllAnswer(concerned)) return false;
  }
  return true;
}

bool Desktop::Door::AwaitAnswer(WindowHandle window, std::optional<std::uint64_t> deadlineMs) {
  const bool answers = AwaitThreads([window](const Window& each) { return each.handle == window; }, deadlineMs);
  return answers && Find(window) != nullptr;
}

void Desktop::Door::AwaitIdle(std::uint32_t processId, std::uint64_t deadlineMs) {
  AwaitThreads([processId](const Window& each) { return each.processId == processId; }, deadlineMs);
}

bool Desktop::Door::DeliverCopyData(WindowHandle window, std::uint64_t kind, os::BytesView record,
                                    std::optional<std::uint64_t> deadlineMs) {
  if (!AwaitAnswer(window, deadlineMs)) return false;
  const auto take = Find(window)->copyData;
  const auto hasAnswered = take ? take(kind, record) : nullptr;
  return !hasAnswered || scheduler_.WaitUntil(hasAnswered, deadlineMs);
}

void Desktop::Door::AskToShow(WindowHandle window, os::ShowCommand command) {
  const auto* asked = Find(window);
  if (asked == nullptr || !asked->responsive) return;
  if (asked->busyUntilMs > scheduler_.NowMs()) {
    scheduler_.After(asked->busyUntilMs - scheduler_.NowMs(), [=, this] { AskToShow(window, command); });
    return;
  }
  Note(window, ShowEntry(command));
  Show(window, command);
}

void Desktop::Door::AskToClose(WindowHandle window) {
  const auto* asked = Find(window);
  if (asked == nullptr || !asked->closesWhenAsked) return;
  if (asked->closesAfterMs == 0) return Close(window);
  scheduler_.After(asked->closesAfterMs, [this, window] { Close(window); });
}

}  // namespace sim

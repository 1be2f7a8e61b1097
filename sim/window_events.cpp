#include "sim/window_events.h"

#include <algorithm>

namespace sim {

int WindowEvents::Raise(os::WindowEvent event, os::WindowHandle window, std::int32_t object) {
  int watchers = 0;
  for (auto& [ranges, queue, longestMs] : subscriptions_) {
    const auto holds = [event](const auto& range) { return range.first <= event && event <= range.last; };
    if (std::none_of(ranges.begin(), ranges.end(), holds)) continue;
    queue.push_back({event, window, object});
    ++watchers;
  }
  return watchers;
}

void WindowEvents::Watch(const std::vector<os::WindowEventRange>& ranges, const Watcher& watcher) {
  auto& own = subscriptions_.emplace_back(Subscription{ranges});
  loops_.Serve(own.queue, own.longestMs, [&](const Event& event) { watcher(event.event, event.window, event.object); });
  subscriptions_.remove_if([&own](const Subscription& each) { return &each == &own; });
}

}  // namespace sim

#include "sim/window_events.h"

namespace sim {

void WindowEvents::Raise(os::WindowEvent event, os::WindowHandle window, std::int32_t object) {
  for (auto& subscription : subscriptions_) {
    const bool wanted = subscription.first <= event && event <= subscription.last;
    if (wanted) subscription.queue.push_back({event, window, object});
  }
}

void WindowEvents::Watch(os::WindowEvent first, os::WindowEvent last, const Watcher& watcher) {
  auto& own = subscriptions_.emplace_back(Subscription{first, last});
  loops_.Serve(own.queue, own.longestMs, [&](const Event& event) { watcher(event.event, event.window, event.object); });
  subscriptions_.remove_if([&own](const Subscription& each) { return &each == &own; });
}

}  // namespace sim

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <vector>

#include "os/hooks.h"
#include "os/types.h"
#include "sim/thread_loops.h"

namespace sim {

/// The programs that watch windows. What happens waits in a queue for each of them, and nobody waits for the watcher.
class WindowEvents {
 public:
  explicit WindowEvents(ThreadLoops& loops) : loops_(loops) {}

  using Watcher = std::function<void(os::WindowEvent, os::WindowHandle, std::int32_t object)>;

  /// Returns how many watchers there are of it.
  int Raise(os::WindowEvent event, os::WindowHandle window, std::int32_t object);

  /// Serves the calling thread's events until its message loop is quit.
  void Watch(const std::vector<os::WindowEventRange>& ranges, const Watcher& watcher);

  void EndProcess() { subscriptions_.clear(); }

 private:
  struct Event {
    os::WindowEvent event;
    os::WindowHandle window;
    std::int32_t object;
  };
  struct Subscription {
    std::vector<os::WindowEventRange> ranges;
    std::deque<Event> queue = {};
    std::uint64_t longestMs = 0;  // nobody asks: these watchers hold nothing up
  };
  ThreadLoops& loops_;
  std::list<Subscription> subscriptions_;  // a list, so that references stay good
};

}  // namespace sim

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

#include "sim/scheduler.h"
#include "sim/thread_loops.h"

namespace sim {

/// The hook of the keyboard or of the mouse. Each event is offered to the thread that hooked, one after the other, and
/// goes on once that has answered, or after 300 ms: then a call that has not begun is lost. The system may remove a
/// hook, and tells nobody.
class Hook {
 public:
  class Door;
  static constexpr std::uint32_t kLimitMs = 300;  // LowLevelHooksTimeout, where nobody has set it

  Hook(Scheduler& scheduler, ThreadLoops& loops) : scheduler_(scheduler), loops_(loops) {}

  // ---- When the system removes it ----

  int diesAtOverrun = 11;  // some systems forgive none
  bool diesAtResume = false, diesAtUnlock = false;
  void DiesNow();

  // ---- What was seen of it ----

  [[nodiscard]] bool IsAlive() const { return isHooked_; }
  /// How often it was hooked, by all processes so far.
  [[nodiscard]] int TimesHooked() const { return timesHooked_; }
  /// The longest that the watching program held up one event, or was at work on it, in milliseconds.
  [[nodiscard]] std::uint64_t LongestHoldUpMs() const { return longestHoldUpMs_; }

 private:
  struct Event {
    std::function<void()> call, effect;
    std::uint64_t offeredMs = 0;  // 0: it waits for the one before it
  };
  void OfferFirst();
  void CallFor(std::uint64_t offer);
  void Overrun();
  void PassOn();
  void Renew();

  Scheduler& scheduler_;
  ThreadLoops& loops_;
  bool isHooked_ = false, isWatched_ = false;
  int overruns_ = 0, timesHooked_ = 0;
  std::deque<Event> events_;                 // the first is the thread's
  std::deque<std::function<void()>> calls_;  // what the thread has to do
  std::uint64_t offer_ = 0;                  // the number of the event that the thread has
  std::optional<Scheduler::Actions::iterator> limit_;
  std::uint64_t longestHoldUpMs_ = 0;
};

class Hook::Door : public Hook {
 public:
  using Hook::Hook;

  /// Hooks, and makes the calls on the calling thread until its loop is quit.
  void Watch();
  /// The watching thread hooks again, once it comes to that. False when nobody watches.
  bool HookAgain();

  /// An event of the user's: `call` is what the hook is called with, none when it is not, and `effect` what the event
  /// does when it goes on.
  void Offer(std::function<void()> call, std::function<void()> effect);

  /// The process is gone, and its hook with it: what that held up goes on.
  void EndProcess();
};

/// Both of them, for those who remove them.
struct Hooks {
  Hooks(Scheduler& scheduler, ThreadLoops& loops) : keyboard(scheduler, loops), mouse(scheduler, loops) {}

  /// The machine wakes; the user unlocks it.
  void Resume();
  void Unlock();
  void EndProcess();

  Hook::Door keyboard, mouse;
};

}  // namespace sim

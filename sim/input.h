#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <set>

#include "sim/desktop.h"
#include "sim/scheduler.h"
#include "sim/thread_loops.h"

namespace sim {

/// The keyboard and the mouse buttons. Keys pressed by the test reach a program that watches the keyboard one by one,
/// and the laptop settles after each.
class Input {
 public:
  class Door;

  Input(Scheduler& scheduler, ThreadLoops& loops, const Desktop& desktop)
      : scheduler_(scheduler), loops_(loops), desktop_(desktop) {}

  void Press(std::uint32_t virtualKey);
  void Release(std::uint32_t virtualKey);

  /// The left Windows key goes down, P down and up, the Windows key up.
  void PressWinP();

  /// The longest that a watching program held up one key, in milliseconds.
  [[nodiscard]] std::uint64_t LongestHoldUpMs() const { return longestHoldUpMs_; }
  [[nodiscard]] bool IsWatched() const { return watchers_ > 0; }

  /// Clicks of the left button that a program made.
  [[nodiscard]] int LeftClicks() const { return leftClicks_; }

 private:
  struct Key {
    std::uint32_t virtualKey = 0;
    std::set<std::uint32_t> down;  // the keys that were down when it came
  };
  void Turn(std::uint32_t virtualKey, bool down);

  Scheduler& scheduler_;
  ThreadLoops& loops_;
  const Desktop& desktop_;
  std::set<std::uint32_t> down_;
  std::deque<Key> pending_;
  const Key* served_ = nullptr;  // while a program looks at it
  int watchers_ = 0, leftClicks_ = 0;
  std::uint64_t longestHoldUpMs_ = 0;
};

class Input::Door : public Input {
 public:
  using Input::Input;

  void Watch(const std::function<void(std::uint32_t)>& onKey);
  [[nodiscard]] bool IsDown(std::uint32_t virtualKey) const;
  void ClickLeft() { ++leftClicks_; }

  /// The process is gone, and its hooks with it; the keys stay as they are.
  void EndProcess();
};

}  // namespace sim

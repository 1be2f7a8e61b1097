#pragma once

#include <cstdint>
#include <functional>
#include <set>

#include "sim/desktop.h"
#include "sim/hooks.h"
#include "sim/scheduler.h"

namespace sim {

/// The keyboard and the mouse buttons. Keys pressed by the test reach a program that watches the keyboard one by one,
/// and the laptop settles after each.
class Input {
 public:
  class Door;

  Input(Scheduler& scheduler, Hook::Door& hook, const Desktop& desktop)
      : scheduler_(scheduler), hook_(hook), desktop_(desktop) {}

  void Press(std::uint32_t virtualKey);
  void Release(std::uint32_t virtualKey);

  /// The left Windows key goes down, P down and up, the Windows key up.
  void PressWinP();

  /// Clicks of the left button that a program made.
  [[nodiscard]] int LeftClicks() const { return leftClicks_; }

 private:
  using Keys = std::set<std::uint32_t>;
  using Watcher = std::function<void(std::uint32_t)>;
  void Turn(std::uint32_t virtualKey, bool down);

  Scheduler& scheduler_;
  Hook::Door& hook_;
  const Desktop& desktop_;
  Keys down_;
  const Watcher* watcher_ = nullptr;
  const Keys* downThen_ = nullptr;  // when the key came that a program looks at
  int leftClicks_ = 0;
};

class Input::Door : public Input {
 public:
  using Input::Input;

  void Watch(const Watcher& onKey);
  [[nodiscard]] bool IsDown(std::uint32_t virtualKey) const;
  void ClickLeft() { ++leftClicks_; }

  /// The process is gone; the keys stay as they are.
  void EndProcess();
};

}  // namespace sim

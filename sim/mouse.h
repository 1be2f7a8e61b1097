#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "os/hooks.h"
#include "os/types.h"
#include "sim/desktop.h"
#include "sim/hooks.h"
#include "sim/scheduler.h"

namespace sim {

/// The mouse, the pointer and what the user does to windows with them. Each event reaches a program that watches the
/// mouse first and then takes effect: the pointer moves, the window under a press comes to the user, a grabbed window
/// follows. After each gesture the laptop settles; those that come without settling play one after the other.
class Mouse {
 public:
  class Door;

  Mouse(Scheduler& scheduler, Hook::Door& hook, Desktop& desktop)
      : scheduler_(scheduler), hook_(hook), desktop_(desktop) {}

  /// Where the pointer is.
  [[nodiscard]] os::Point At() const { return desktop_.Onto(cursor_); }
  [[nodiscard]] bool IsPressed() const { return pressed_; }

  /// Puts the pointer somewhere, as a program or a touch does; who watches the mouse is not told.
  void SetPosition(os::Point point);

  void MoveTo(os::Point to);
  /// Moves there in steps that are 8 ms apart.
  void Glide(os::Point to);
  void Press();
  void Release();

  /// Moves to a window's title bar, or to its right and bottom border, and presses there: each move until Drop or
  /// CancelDrag moves or resizes the window.
  void Grab(os::WindowHandle window, os::Point at) { Hold(window, at, Grip::TitleBar); }
  void GrabBorder(os::WindowHandle window, os::Point at) { Hold(window, at, Grip::Border); }
  void Drop() { Release(); }
  /// Esc: the window goes back to where it was grabbed, and the button stays down.
  void CancelDrag();
  void DragTitleBar(os::WindowHandle window, os::Point from, os::Point to);

  /// Called when a window that was grabbed is let go.
  std::function<void(os::WindowHandle window)> whenDropped = {};

 private:
  enum class Grip { TitleBar, Border };
  struct Drag {
    os::WindowHandle window;
    Grip grip;
    os::Point grabbedAt;
    os::Rect from;  // the window's place then
  };
  using Watcher = std::function<void(os::MouseEvent, os::Point)>;

  void Later(std::uint32_t ms, std::function<void()> step);
  /// Without a kind, who watches the mouse does not see it.
  void Add(std::optional<os::MouseEvent> kind, os::Point point, std::function<void()> effect);
  void QueueMove(std::uint32_t afterMs, os::Point to);
  void QueuePress(std::function<void()> effect);
  void Hold(os::WindowHandle window, os::Point at, Grip grip);
  void TakeMove(os::Point to);
  void TakePress(os::WindowHandle window);
  void TakeGrab(os::WindowHandle window, Grip grip);
  void Follow();
  void EndDrag();

  Scheduler& scheduler_;
  Hook::Door& hook_;
  Desktop& desktop_;
  os::Point cursor_ = {960, 540};  // the middle of the B panel
  os::Point hand_ = cursor_;       // where the last event that was queued puts it
  bool pressed_ = false;
  std::optional<Drag> drag_;
  const Watcher* watcher_ = nullptr;
  std::uint64_t nextStepMs_ = 0;  // when the gesture that is under way is over
  int stepsUnderWay_ = 0;
};

class Mouse::Door : public Mouse {
 public:
  using Mouse::Mouse;

  void Watch(const Watcher& onMouse);
};

}  // namespace sim

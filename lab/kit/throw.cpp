#include "kit/throw.h"

#include "kit/app_window.h"
#include "kit/pointer.h"

namespace lab {
namespace {

/// Brings the pointer to a place and keeps it there until the controller has traced `line`. A hand is never quite
/// still: the controller looks whenever the pointer moves, sees then where it was before, and the window follows later
/// still.
bool Hold(const Laptop& laptop, os::Point at, const wchar_t* line, std::size_t mark) {
  Pointer::GlideTo(at);
  return Eventually([&, slip = 0]() mutable {
    slip = 1 - slip;
    Pointer::MoveTo({at.x + slip, at.y});
    return laptop.trace.Contains(line, mark);
  });
}

}  // namespace

bool BeginThrow(const Laptop& laptop, const AppWindow& window, const Throw& how) {
  const auto mark = laptop.trace.Mark();
  const auto bar = window.TitleBar();
  const auto at = [bar](os::Point offset) { return os::Point{bar.x + offset.x, bar.y + offset.y}; };
  return Pointer::Grab(window) && Hold(laptop, at(how.aside), how.shown, mark) &&
         Hold(laptop, at(how.area), how.hovered, mark);
}

}  // namespace lab

#include "os/input.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

bool IsKeyDown(std::uint32_t virtualKey) {
  if (sim::Enter<&IsKeyDown>().failed()) return false;
  return virtualKey == kButtonLeft ? Machine().mouse.IsPressed() : Machine().input.IsDown(virtualKey);
}

void ClickLeftButton() {
  if (!sim::Enter<&ClickLeftButton>().failed() && Machine().desktop.userIsHere) Machine().input.ClickLeft();
}

Point CursorPosition() {
  if (sim::Enter<&CursorPosition>().failed()) return {};
  return Machine().mouse.At();
}

Status SetCursorPosition(Point point) {
  if (const auto call = sim::Enter<&SetCursorPosition>(); call.failed()) return Error{call.error()};
  Machine().mouse.SetPosition(point);
  return Done{};
}

}  // namespace os

#include "os/input.h"

#include "os/win32/win32_support.h"

namespace os {

bool IsKeyDown(std::uint32_t virtualKey) {
  constexpr SHORT kDown = static_cast<SHORT>(0x8000);
  return (GetAsyncKeyState(static_cast<int>(virtualKey)) & kDown) != 0;
}

void ClickLeftButton() {
  mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

Point CursorPosition() {
  POINT pointer{};
  GetCursorPos(&pointer);
  return {pointer.x, pointer.y};
}

Status SetCursorPosition(Point point) {
  return win32::DoneOrLastError(SetCursorPos(point.x, point.y));
}

}  // namespace os

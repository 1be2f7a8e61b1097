#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

/// Whether a key is down now, or a button of the mouse, left and right as they are on the mouse (GetAsyncKeyState). Any
/// thread.
[[nodiscard]] bool IsKeyDown(std::uint32_t virtualKey);
inline constexpr std::uint32_t kKeyP = 0x50, kKeyLeftWindows = 0x5B;     // 'P', VK_LWIN
inline constexpr std::uint32_t kButtonLeft = 0x01, kButtonRight = 0x02;  // VK_LBUTTON, VK_RBUTTON

/// Presses and releases the left mouse button where the pointer is (mouse_event). Any thread.
void ClickLeftButton();
template <>
inline constexpr WaitingMark kWaiting<&ClickLeftButton>{Waiting::Deaf, false};

/// Where the pointer is (GetCursorPos); (0, 0) when the system does not tell, as on another desktop. Any thread.
[[nodiscard]] Point CursorPosition();

/// Puts the pointer somewhere (SetCursorPos). Any thread.
Status SetCursorPosition(Point point);

}  // namespace os

#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/window_control.h"

// Changing other programs' windows, which may be busy, refuse, hang or be gone.
namespace tessaview {

/// Whether a window's program hangs: it is there and answers nothing for as long as the system allows a program, 5
/// seconds. A change of its window would wait for ever. Logs it. Any thread; blocks for those 5 seconds at most, and
/// not at all once the system knows.
[[nodiscard]] bool Hangs(os::WindowHandle window);

/// Shows a window, unless its program hangs (ShowWindow). Any thread.
void Show(os::WindowHandle window, os::ShowCommand command);

/// Shows a window, at most 10 times and until its program hangs, until it was visible before; each time the program is
/// given half a second to become idle. Logs how that went; false when it failed 10 times. Any thread; blocks for 5
/// seconds at most.
bool RetryWithShowWindow(os::WindowHandle window, os::ShowCommand nCmdShow);

/// Moves and sizes a window (in desktop pixels) with the same patience, until the system says that it did.
bool RetryWithMoveWindow(os::WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height);

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/window_control.h"

// Changing other programs' windows, which may be busy, refuse, hang or be gone.
namespace tessaview {

/// Whether a window's program hangs: the window is there, and its thread answers nothing for 5 seconds, as long as the
/// system allows a program. A change of the window would wait for ever. Logs it. Any thread; blocks for those 5 seconds
/// at most, and not at all once the system knows.
[[nodiscard]] bool Hangs(os::WindowHandle window);

/// Shows a window, unless its program hangs (ShowWindow). Any thread.
void Show(os::WindowHandle window, os::ShowCommand command);

/// Shows a window, and tries again until the system says that the window was visible before the call. Gives up after 10
/// tries, or when its program hangs. Before each try the program has half a second to become idle. Logs the outcome;
/// false when it gave up. Any thread; blocks for 5 seconds at most, and for 5 more when the program hangs.
bool RetryWithShowWindow(os::WindowHandle window, os::ShowCommand nCmdShow);

/// Moves and sizes a window (in desktop pixels) with the same patience, until the system says that it did.
bool RetryWithMoveWindow(os::WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height);

}  // namespace tessaview

#pragma once

#include "os/types.h"

namespace tessaview {

/// The window that the UI's arrows move; None while there is none. Main thread.
[[nodiscard]] os::WindowHandle PreviousForegroundWindow();

/// The user touched the desktop at a point: decides which window the UI's arrows move from now on, and tells the UI
/// which arrow to show: "UP" for a window on the C panel, "DOWN" for one on the B panel, "FORBID" when there is none.
/// Main thread; blocks for as long as the UI takes.
void UpdateTargetWindow(os::Point touch);

}  // namespace tessaview

#pragma once

#include "os/types.h"

// The application windows on the C panel, as the UI's home button and its navigator see them.
namespace tessaview {

/// Minimises the applications on the C panel; companion windows are hidden instead. Any thread; blocks for 5 seconds
/// for each program that hangs.
void MinimizeAppsOnCPanel();

/// The topmost application window on the C panel that may be moved; None when there is none. Any thread.
[[nodiscard]] os::WindowHandle TopAppOnCPanel();

}  // namespace tessaview

#pragma once

#include "os/types.h"

namespace tessaview {

/// Hides a window and asks it to close. If it is still there after 5 seconds and nobody has shown it again, its process
/// is ended, on a thread of its own. The processes of the shell, of the UI and this one are never ended. Any thread;
/// blocks for 20 ms at most, for 5 seconds when the program hangs.
void CloseWindowForGood(os::WindowHandle window);

}  // namespace tessaview

#pragma once

#include "os/types.h"

namespace tessaview {

/// Hides a window and asks it to close. If it is still there after 5 seconds and its program hangs, that is ended, on a
/// thread of its own and with the rights of the user; never one that answers, shows another window, had hidden this one
/// before, or shows it again; and never the shell, the UI or this program. Any thread; blocks for 20 ms at most.
void CloseWindowForGood(os::WindowHandle window);

}  // namespace tessaview

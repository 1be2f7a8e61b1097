#pragma once

#include "os/hooks.h"

namespace tessaview {

/// Follows the window that the user works with, on a thread of its own: while it fills the primary screen, the windows
/// on the C panel are kept from being activated. `onForeground` is called there when another window comes to the
/// foreground, and must not wait.
void StartForegroundWatch(void (*onForeground)());

/// What the watch does with an event. A new window in the foreground counts, and a window that moved; a moved pointer
/// or caret does not. On the watch's thread.
void OnForegroundEvent(os::WindowEvent event, std::int32_t object);

}  // namespace tessaview

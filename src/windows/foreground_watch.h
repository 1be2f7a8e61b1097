#pragma once

#include <cstdint>

namespace tessaview {

/// Follows the window that the user works with, on a thread of its own: while it fills the primary screen, the windows
/// on the C panel are kept from being activated. `onForeground` is called there when another window comes to the
/// foreground, and must not wait.
void StartForegroundWatch(void (*onForeground)());

/// What the watch does when a window has come to the foreground, or when something has moved: a window counts, the
/// pointer and a caret (os::kObject…) do not. On the watch's thread.
void OnForegroundEvent(std::int32_t object);

}  // namespace tessaview

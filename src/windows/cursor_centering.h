#pragma once

namespace tessaview {

/// Puts the pointer in the middle of the primary screen, on a thread of its own, and keeps it on that screen for a
/// moment: what switches a panel off may still push it away. Returns at once.
void StartCursorCentering();

}  // namespace tessaview

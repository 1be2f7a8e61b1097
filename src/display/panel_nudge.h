#pragma once

namespace tessaview {

/// Moves the C panel by one pixel, which makes the system lay the desktop out again; the display change that follows
/// puts it back into its place. Waits for a panel that is still coming and tries again when the change fails, 3 seconds
/// for both together. Blocks the calling thread for up to about 3.5 seconds.
void MoveCPanelMonitorOnePixel();

}  // namespace tessaview

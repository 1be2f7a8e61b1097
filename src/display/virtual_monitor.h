#pragma once

namespace tessaview {

/// True when the desktop has a monitor without hardware behind it, as the desktop wallpaper sees it. Any thread;
/// milliseconds.
bool CheckVirtualMonitor();

}  // namespace tessaview

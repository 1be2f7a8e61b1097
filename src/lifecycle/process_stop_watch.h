#pragma once

namespace tessaview {

/// Watches for processes that end, on a thread of its own that lives as long as this process, and has the UI brought
/// back when it was the UI's. What cannot be set up is told to debuggers only, and leaves the UI without a watchdog.
/// False when there is no thread to be had.
[[nodiscard]] bool StartProcessStopWatch();

}  // namespace tessaview

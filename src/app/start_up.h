#pragma once

namespace tessaview {

/// Runs the controller from its first step to the end of its message loop: one instance per session, one hidden
/// window. Returns 0 when another instance runs or the window cannot be created, 11 ("resource unavailable") when there
/// is no thread for the watchdog, else the code of the quit message. Blocks the calling thread, which becomes the
/// controller's main thread.
int RunController();

}  // namespace tessaview

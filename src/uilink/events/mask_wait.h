#pragma once

namespace tessaview {

/// Lets the UI take its mask off the C panel: at once or, while the sign-in or the lock screen is in the foreground, as
/// soon as the user is at the desktop. There is no time limit; messages are served meanwhile, and a new call takes the
/// place of the one before. Main thread.
void TakeMaskOffAtDesktop();

/// Forgets a call that still waits. Main thread.
void KeepMaskOn();

/// The wait's timer came. Main thread.
void OnDesktopTimer();

}  // namespace tessaview

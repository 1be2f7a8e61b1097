#pragma once

namespace tessaview {

/// Whether the UI shows its main window, its setup guide or its video. Any thread.
[[nodiscard]] bool IsAnyUiWindowOpen();

/// Brings the UI up once the user's desktop is there: package check, helper tools, then the UI itself. Instead switches
/// to touch-pad mode when the touch screen is wrong. Blocks without a time limit for the desktop, then as long as the
/// package check does, then for up to 40 seconds for the UI's window.
void LaunchUIAtStart();

/// Start-up has done what the UI needs: runs LaunchUIAtStart, here if Windows' setup is over, else when it ends. Main
/// thread; blocks as that.
void LaunchUIOnceSetUp();

/// Windows' setup ended: runs LaunchUIAtStart on a thread of its own, unless start-up has yet to come that far. Any
/// thread.
void LaunchUIAfterSetup();

}  // namespace tessaview

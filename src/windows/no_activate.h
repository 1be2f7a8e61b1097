#pragma once

#include "os/types.h"

// While a program fills the primary screen, the windows on the C panel must not take the keyboard from it when they are
// touched.
namespace tessaview {

/// Whether a window never enters the mode: windows of the UI, its companions and the shell, and frames of packaged
/// applications.
[[nodiscard]] bool IsExcludedWindow(os::WindowHandle window);

/// Gives the visible windows on the C panel the style that keeps them from being activated (WS_EX_NOACTIVATE), and
/// remembers them. Windows that have it by themselves are left out. Any thread; blocks for 5 seconds for each
/// program that hangs.
void EnterNoActivateMode();

/// Takes the style from the remembered windows again. Returns at once when there are none; blocks likewise.
void LeaveNoActivateMode();

/// The same, and the mode is not entered any more: the controller ends.
void LeaveNoActivateModeForGood();

/// Whether any window is remembered.
[[nodiscard]] bool IsInNoActivateMode();

}  // namespace tessaview

#pragma once

#include "uilink/ui_record.h"

// Commands that move a window to the other panel, or to a place the UI chose. Unless said otherwise the window is in
// the handle.
namespace tessaview {

/// "TOUCH", point: takes the window there for the one that the arrows move; answers "UP", "DOWN" or "FORBID".
void TakeTouchedWindow(const UiMessage& message);

/// "UP", "DOWN": move the window that was taken to the B panel, and to the C panel.
void MoveTargetUp(const UiMessage& message);
void MoveTargetDown(const UiMessage& message);

/// "VIEWWINUP": moves a window to the B panel. "VIEWRECALL": shows a hidden window and moves it to the C panel.
void MoveViewUp(const UiMessage& message);
void RecallView(const UiMessage& message);

/// "NAVWINUP": moves the topmost application of the C panel to the B panel.
void MoveTopAppUp(const UiMessage& message);

/// "LAUNCHMOVETOC": moves a window to the C panel.
void MoveLaunchedDown(const UiMessage& message);

/// "SYSAPPNAVIGATORMOVEUP", "SYSAPPNAVIGATORMOVEDOWN", how in the point's x (0 = by drag, else by button): move a
/// window to the B panel, and to the C panel.
void MoveNavigatedUp(const UiMessage& message);
void MoveNavigatedDown(const UiMessage& message);

/// "TASKGROUPLAUNCHAPPS", "TASKGROUPLAUNCHAPPSMAX", rectangle: put a window there, so that it does not stick out of the
/// B panel at the right or at the bottom; and maximise it there.
void PlaceTaskGroupWindow(const UiMessage& message);
void PlaceTaskGroupWindowMaximized(const UiMessage& message);

}  // namespace tessaview

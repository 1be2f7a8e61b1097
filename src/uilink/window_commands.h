#pragma once

#include "uilink/ui_record.h"

// Commands that show, hide or close a window, and leave it where it is. Unless said otherwise the window is in the
// handle.
namespace tessaview {

/// "VIEWCLOSE": closes a window, in the end with its program.
void CloseView(const UiMessage& message);

/// "HOME": minimises the applications on the C panel; no window.
void GoHome(const UiMessage& message);

/// "SHOWMIN", "SHOWRESTORE": minimise a window, and restore it.
void MinimizeWindow(const UiMessage& message);
void RestoreWindow(const UiMessage& message);

/// "APPNAVINORMAL", "APPNAVISHOW", "APPNAVIMAXIMIZED", "APPNAVIRESTORE": show a window normally, as it is, maximised,
/// and restored.
void ShowNavigatedNormal(const UiMessage& message);
void ShowNavigated(const UiMessage& message);
void ShowNavigatedMaximized(const UiMessage& message);
void RestoreNavigated(const UiMessage& message);

/// "SETTOPMOST", "SETNOTOPMOST": put a window above all others, and back among them.
void PutOnTop(const UiMessage& message);
void PutBackFromTop(const UiMessage& message);

}  // namespace tessaview

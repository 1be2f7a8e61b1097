#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "GETPROCESSNAME", window in the handle: answers "PROCESSNAME=" with the name of the window's executable, without
/// folder and extension; with nothing when the window is gone or its process may not be asked.
void TellProcessName(const UiMessage& message);

/// "SETTOUCHPAD": asks the hot-key component to turn the touch pad on.
void TurnTouchPadOn(const UiMessage& message);

/// "SETCURSORCENTER": puts the pointer in the middle of the primary screen.
void CenterCursor(const UiMessage& message);

}  // namespace tessaview

#pragma once

#include "core/process_wide.h"

namespace tessaview {

/// A one-pixel move of the C panel is owed, once the display change after Win+P has come.
extern ProcessWide<bool> Win_P_WindowMoveFlag;

/// Watches the keyboard for Win+P on a thread of its own. Both press and release of P with the left Windows key down
/// bring a C panel back that is off although the user wants it on, one after the other on a further thread: the
/// keyboard is never held up by it.
void StartWinPWatch();

}  // namespace tessaview

#pragma once

#include "core/process_wide.h"

namespace tessaview {

/// The touch screen's HID instance path is wrong, so the UI must not be shown. Nothing looks for that yet: it stays
/// clear.
extern ProcessWide<bool> gTouchScreenHidWrong;

/// Brings the UI up once the user's desktop is there: package check, helper tools, then the UI itself. Instead switches
/// to touch-pad mode when the touch screen is wrong. Blocks without a time limit for the desktop, then for up to 40
/// seconds for the UI's window.
void LaunchUIAtStart();

}  // namespace tessaview

#pragma once

#include "windows/mover/window_mover.h"

namespace tessaview {

/// Moves a window to the panel it was thrown to, on a thread of its own, and records that the mover was used. Returns
/// at once. Any thread.
void MoveThrownWindow(const ThrownWindow& thrown);

}  // namespace tessaview

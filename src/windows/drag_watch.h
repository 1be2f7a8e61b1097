#pragma once

#include "os/hooks.h"

namespace tessaview {

/// Watches for windows that are dragged or sized, on a thread of its own. They count while the C panel is on and the UI
/// is there without its setup guide.
void StartDragWatch();

/// Watches the mouse on a thread of its own: for presses, for the dragged window's way, and for the edge at the bottom
/// of the C panel where the navigator waits.
void StartMouseWatch();

/// What the mouse watch does with an event. `pointer` is where the pointer is going. It holds up the pointer: it only
/// compares numbers and hands on.
void OnMouse(os::MouseEvent event, os::Point pointer);

}  // namespace tessaview

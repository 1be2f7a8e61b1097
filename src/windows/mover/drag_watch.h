#pragma once

#include "os/hooks.h"

// Feeds the window mover with what the mouse does and with the drags that the system tells of. The texts of one step
// are queued for the UI before any thread takes the next step, so that the UI gets them in order.
namespace tessaview {

/// Watches for windows that are dragged or sized, on a thread of its own. A drag counts if it begins while the C panel
/// is on and the UI is there without its setup guide.
void StartDragWatch();

/// Watches the mouse on a thread of its own: for presses, for the dragged window's way, and for the edge at the bottom
/// of the C panel where the navigator waits.
void StartMouseWatch();

/// What the mouse watch does with an event. `pointer` is where the pointer is going. The pointer stands still until
/// this returns, so it waits for no program: texts go to the sender, a thrown window to a thread of its own.
/// Microseconds.
void OnMouse(os::MouseEvent event, os::Point pointer);

/// The UI does without the mover from now on: an overlay that is shown is taken down. Any thread.
void DisarmMover();

}  // namespace tessaview

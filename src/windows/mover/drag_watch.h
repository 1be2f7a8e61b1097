#pragma once

#include "os/hooks.h"

// How the user's mouse and the system's word of drags feed the window mover. What one step of it has to say is queued
// for the UI before the next step is taken, whichever thread takes it, so that the UI hears of every overlay's end.
namespace tessaview {

/// Watches for windows that are dragged or sized, on a thread of its own. They count while the C panel is on and the UI
/// is there without its setup guide.
void StartDragWatch();

/// Watches the mouse on a thread of its own: for presses, for the dragged window's way, and for the edge at the bottom
/// of the C panel where the navigator waits.
void StartMouseWatch();

/// What the mouse watch does with an event. `pointer` is where the pointer is going. The pointer is held up meanwhile:
/// it asks for a window's place at most, compares, and hands on. Microseconds.
void OnMouse(os::MouseEvent event, os::Point pointer);

/// The UI does without the mover from now on: an overlay that is shown is taken down. Any thread.
void DisarmMover();

}  // namespace tessaview

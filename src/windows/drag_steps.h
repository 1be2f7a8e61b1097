#pragma once

#include "os/types.h"

// How the watches feed the window mover: each of these is one step of it. What the mover then has to say is queued for
// the UI before the next step is taken, whichever thread takes it, so that the UI hears of every overlay's end.
namespace tessaview {

/// Whether a window that can be thrown is being dragged. Any thread; one load.
[[nodiscard]] bool IsMoverArmed();

/// The left button was pressed or released, or the pointer moved while the mover is armed. On the mouse thread;
/// microseconds.
void OnLeftButtonDown();
void OnLeftButtonUp();
void TrackDraggedWindow();

/// The UI does without the mover from now on: an overlay that is shown is taken down. Any thread.
void DisarmMover();

/// The system says that a window's drag or sizing began, and that it ended. On the thread "drag".
void OnMoveSizeStart(os::WindowHandle window);
void OnMoveSizeEnd();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// One step of the search for the touch pad. While the controller is unknown it looks for a touch-pad collection and
/// learns the controller's ids and the pad's ranges from it; once they are known it looks for the controller's
/// collection that takes the mode report, and keeps that open. True when the step found what it looked for.
/// Any thread; milliseconds.
bool FindTouchPadHid();

/// Forgets the touch pad and searches it again in both steps; sets and returns `gTouchPadFound`.
bool SearchTouchPadAgain();

/// Switches the pad to cursor mode, so that it works as a touch pad. False when it is not connected or refuses.
/// Any thread; milliseconds.
bool SetModetoTouchPad();

}  // namespace tessaview

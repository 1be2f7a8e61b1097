#pragma once

namespace tessaview {

/// Puts the C panel back below the B panel, centred, and the right way up, in one change, if it is not there. A change
/// causes a further display change, so the geometry that was looked at last is left alone unless the panel is turned
/// wrongly. Works on what the last panel search found. Main thread; can take seconds when it repairs.
void CheckCPanel_Position_Orientation();

}  // namespace tessaview

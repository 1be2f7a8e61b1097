#pragma once

namespace tessaview {

/// True when the C panel was found and stands the right way up, its long side horizontal: it is mounted portrait, so
/// that is a display orientation of 270 degrees. Logs what it sees, in the words of somebody sitting before it.
bool IsCPanelLandscape();

}  // namespace tessaview

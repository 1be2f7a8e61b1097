#pragma once

#include "os/displays.h"

namespace tessaview {

/// The projection mode (the user's Win+P choice) as QueryWinPMode found it last; at most one of these is true. Any
/// thread.
[[nodiscard]] bool isInternalMode();  // PC screen only
[[nodiscard]] bool isCloneMode();     // Duplicate
[[nodiscard]] bool isExtendMode();    // Extend
[[nodiscard]] bool isExternalMode();  // Second screen only

/// The same as one value, for who asks for more than one of them.
[[nodiscard]] os::Topology ProjectionMode();

/// Asks the system for the projection mode, and notes it. Any thread; milliseconds.
void QueryWinPMode();

}  // namespace tessaview

#pragma once

#include "core/process_wide.h"
#include "os/displays.h"

namespace tessaview {

/// The projection mode (the user's Win+P choice) as last queried: at most one is set.
extern ProcessWide<bool> isInternalMode;  // PC screen only
extern ProcessWide<bool> isCloneMode;     // Duplicate
extern ProcessWide<bool> isExtendMode;    // Extend
extern ProcessWide<bool> isExternalMode;  // Second screen only

/// The topology that the system's configuration database has in force; None when it cannot be read. Any thread.
[[nodiscard]] os::Topology CurrentTopology();

/// Sets the four flags from the current topology; all stay clear when it is none of the four. Any thread.
void QueryWinPMode();

}  // namespace tessaview

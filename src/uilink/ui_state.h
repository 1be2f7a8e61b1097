#pragma once

#include "core/process_wide.h"

namespace tessaview {

/// The UI said that it is ready.
extern ProcessWide<bool> isTessaviewAlive;

/// The UI told its version, so it is one of the newer ones.
extern ProcessWide<bool> gUIVersionReported;

/// The UI does without the window mover; never cleared.
extern ProcessWide<bool> isActionMenuBlocked;

}  // namespace tessaview

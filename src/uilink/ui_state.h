#pragma once

#include <cstdint>

#include "core/process_wide.h"

namespace tessaview {

/// The UI said that it is ready.
extern ProcessWide<bool> isTessaviewAlive;

/// The UI told its version, so it is one of the newer ones.
extern ProcessWide<bool> gUIVersionReported;

/// When the UI last asked for UP and for DOWN, on the clock of os::NowMs; 0 = never.
extern ProcessWide<std::uint64_t> gLastUpCommandTime;
extern ProcessWide<std::uint64_t> gLastDownCommandTime;

/// The UI does without the window mover; never cleared.
extern ProcessWide<bool> isActionMenuBlocked;

}  // namespace tessaview

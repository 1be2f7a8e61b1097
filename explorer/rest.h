#pragma once

#include "explorer/life.h"

namespace explorer {

/// All is well again: every device, program and user is there, and no call is spoilt. Perhaps the controller is started
/// once more. Then the user does one of kLastDeeds things, and half a minute passes.
void ComeToRest(Life& laptop, bool startAgain, int lastDeed);
inline constexpr int kLastDeeds = 9;

}  // namespace explorer

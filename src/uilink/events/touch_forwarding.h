#pragma once

#include "os/hid.h"

namespace tessaview {

/// Forwards raw input of the C panel's touch screen and touch pad to the UI, thinned to every third report and every
/// lift. Input of other devices is ignored. Main thread; blocks while the UI takes a report.
void OnRawInput(const os::RawInput& input);

}  // namespace tessaview

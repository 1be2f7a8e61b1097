#pragma once

#include <cstdint>

namespace tessaview {

/// Sets the C panel's refresh rate in the firmware, for now and (as the firmware variable "VantyraFPS") for the next
/// start of the machine. 30 and 60 Hz exist; any other rate selects 60. Failures are logged.
/// While the session is not at the console the rate is kept for when it is back. Main thread.
void SetPanelRefreshRate(std::int32_t hertz);

/// Sets the rate that was kept, if any. Main thread.
void SetOwedRefreshRate();

}  // namespace tessaview

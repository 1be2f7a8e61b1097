#pragma once

#include <cstdint>

namespace tessaview {

/// Sets the C panel's refresh rate in the firmware, for now and (as the firmware variable "VantyraFPS") for the next
/// start of the machine. 30 and 60 Hz exist; any other rate selects 60. Failures are logged.
void SetPanelRefreshRate(std::int32_t hertz);

}  // namespace tessaview

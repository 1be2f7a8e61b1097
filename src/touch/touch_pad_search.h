#pragma once

#include "touch/touch_pad_state.h"

namespace tessaview {

inline constexpr std::uint8_t kModeReportId = 3;  // of the output report that switches the controller's mode

/// Looks through the HID collections for a touch pad and notes its controller's ids and coordinate ranges in `pad`.
bool FindController(TouchPad& pad);

/// Looks through the controller's collections for the one that takes the mode report, opens it into `pad`.
bool OpenModeCollection(TouchPad& pad);

}  // namespace tessaview

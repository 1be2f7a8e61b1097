#pragma once

#include <cstdint>
#include <memory>

#include "core/process_wide.h"
#include "os/hid.h"

namespace tessaview {

/// What is known of the C panel's touch controller and its touch pad.
struct TouchPad {
  std::uint16_t vendorId = 0, productId = 0;  // of the controller; both 0 until the pad was found
  std::uint32_t outputReportLength = 0;       // bytes, report id included
  std::int32_t xLogicalMax = 0, yLogicalMax = 0;
  std::shared_ptr<const os::HidDevice> writeHandle;  // the pad's collection, kept open for writing
};

extern ProcessWide<TouchPad> gTouchPad;

/// The touch pad was found and is open for writing.
extern ProcessWide<bool> gTouchPadFound;

}  // namespace tessaview

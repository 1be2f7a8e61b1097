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

/// One step of the search for the touch pad. While the controller is unknown it looks for a touch-pad collection and
/// learns the controller's ids and the pad's ranges from it; once they are known it looks for the controller's
/// collection that takes the mode report, and keeps that open. True when the step found what it looked for.
/// Any thread; milliseconds.
bool FindTouchPadHid();

/// Forgets the touch pad and searches it again in both steps; sets and returns `gTouchPadFound`.
bool SearchTouchPadAgain();

/// Switches the pad to cursor mode, so that it works as a touch pad. False when it is not connected or refuses.
/// Any thread; milliseconds.
bool SetModetoTouchPad();

}  // namespace tessaview

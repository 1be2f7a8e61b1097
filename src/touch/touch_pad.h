#pragma once

#include <cstdint>
#include <memory>

#include "os/hid.h"

namespace tessaview {

/// What is known of the C panel's touch controller and its touch pad.
struct TouchPad {
  std::uint16_t vendorId = 0, productId = 0;         // of the controller; both 0 until the pad was found
  std::uint32_t outputReportLength = 0;              // bytes, report id included
  std::shared_ptr<const os::HidDevice> writeHandle;  // the pad's collection, kept open for writing

  /// Whether the pad was found and is open for writing.
  [[nodiscard]] bool gTouchPadFound() const { return writeHandle != nullptr; }
};

/// The touch pad as the last search found it. Any thread.
[[nodiscard]] TouchPad gTouchPad();

/// One step of the search for the touch pad. While the controller is unknown it looks for a touch-pad collection and
/// learns the controller's ids from it; once they are known it looks for the controller's collection that takes the
/// mode report, and keeps that open. True when the step found what it looked for. Any thread; milliseconds.
bool FindTouchPadHid();

/// Forgets the touch pad and closes it, so that it holds up nobody who wants to switch its collection off. A write
/// under way keeps it open until it ends.
void ReleaseTouchPad();

/// Forgets the touch pad and searches it again in both steps. True when it is open for writing.
bool SearchTouchPadAgain();

/// Switches the pad to cursor mode, so that it works as a touch pad. False when it is not connected, refuses, or does
/// not take it within a second. Any thread; milliseconds as a rule.
bool SetModetoTouchPad();

}  // namespace tessaview

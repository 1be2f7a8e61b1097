#pragma once

#include "os/hid.h"

namespace tessaview {

/// The C panel's touch screen and touch pad as raw input devices; None until they were found. Any thread.
[[nodiscard]] os::RawDevice gRawTouchScreen();
[[nodiscard]] os::RawDevice gRawTouchPad();

/// Whether a report with this handle is one of the C panel's. A handle that is not known is asked for its device, and
/// noted if that is the touch screen or the touch pad: their handles are new after every plug, and a device may report
/// before it is listed. Any thread; microseconds.
[[nodiscard]] bool IsFromCPanel(os::RawDevice device);

/// Forgets and finds the controller's raw input devices and has the digitizer page delivered to the service window,
/// also while another window is in front. False when the touch pad is not connected or the system refuses. Any thread.
bool RegisterCPanelRawInput();

/// Ends the delivery. False, with a log line, when the system refuses.
bool UnregisterCPanelRawInput();

}  // namespace tessaview

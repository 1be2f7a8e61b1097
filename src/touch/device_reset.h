#pragma once

namespace tessaview {

/// Enables or disables the HID device node whose first hardware id is `hardwareId`, spelt exactly so. A node that is
/// not there counts as done. False, with a log line, when the system refuses. Can take seconds.
bool SetHidDeviceEnabled(const wchar_t* hardwareId, bool enable);

/// Resets the C panel's touch controller: ends raw input, disables and enables its collection, searches the touch pad
/// and registers raw input again. Blocks until the touch pad is there, for ever if it never comes.
void ResetTouchDevices();

}  // namespace tessaview

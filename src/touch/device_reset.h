#pragma once

namespace tessaview {

/// Resets the C panel's touch controller: ends raw input, closes the touch pad, disables and enables its collection,
/// searches the touch pad and registers raw input again. Stops, with a log line, where the system refuses to end raw
/// input or to enable the collection. Else blocks until the touch pad is there, for ever if it never comes.
void ResetTouchDevices();

}  // namespace tessaview

#pragma once

#include <cstdint>

namespace tessaview {

// The messages shared with the firmware's hot-key component, known by name to both sides (RegisterWindowMessageW).
// Any thread; microseconds.

/// "ACPI Notification through ZRVHotkey from BIOS": the component tells of F6 and of flips.
[[nodiscard]] std::uint32_t HotKeyMessage();

/// "Touchpad status reported from ZRVHotkey": both sides use it to ask for and to report the touch pad's status.
[[nodiscard]] std::uint32_t TouchPadStatusMessage();

/// Asks the component to turn the touch pad on. Does nothing while the component's window is absent.
void RequestTouchPadOn();

/// Tells the component where to send its status reports. Does nothing while the component's window is absent.
void SubscribeToTouchPadStatus();

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/service_window.h"

namespace tessaview {

/// The power settings are about to be registered for: the first notification of lid and of display tells the state of
/// things and not a change. Main thread.
void ExpectFirstNotifications();

/// Notes suspend, resume and status changes in the log (WM_POWERBROADCAST but for settings). Main thread.
void OnPowerBroadcast(std::uint32_t event);

/// Follows a change of a power setting: power source and battery saver set the backlight, lid and console display tell
/// the UI and bring the panel back, what closing the lid does is told to the firmware. Main thread; can take seconds.
void OnPowerSetting(os::PowerSetting setting, std::uint32_t value);

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/service_window.h"

namespace tessaview {

/// The power settings are about to be registered for: the first notification of lid and of display tells the state of
/// things and not a change. Main thread.
void ExpectFirstNotifications();

/// Notes suspend, resume and status changes in the log (WM_POWERBROADCAST but for settings). Main thread.
void OnPowerBroadcast(std::uint32_t event);

/// Follows a change of a power setting. Main thread; can take seconds.
/// - Power source, battery saver: sets the backlight; the source also has the firmware told what closing the lid does.
/// - Lid, console display: tells the UI, and brings the panel back when the lid opens or the display comes on.
/// - Lid-close action: tells the firmware.
void OnPowerSetting(os::PowerSetting setting, std::uint32_t value);

}  // namespace tessaview

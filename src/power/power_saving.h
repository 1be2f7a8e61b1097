#pragma once

namespace tessaview {

/// Brings the power source and battery saver in `gSettings` up to date. False, with `gSettings` as it was or the source
/// unknown, when nothing of power saving may happen now: the panel is not ready, or the system cannot tell.
bool CheckCurrentMode();

/// Applies the battery's backlight level, if the machine runs on battery.
void EnterPowerSavingMode();

/// Applies the user's level again. On battery with battery saver still on that is the mains level: what ends then is
/// the saving, not the battery.
void LeavePowerSavingMode();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// Brings the power source and battery saver in `gSettings` up to date. False when power saving must not change
/// anything now: the panel is not ready, or the system cannot tell the source.
bool CheckCurrentMode();

/// Applies the battery's backlight level, if the machine runs on battery.
void EnterPowerSavingMode();

/// Applies one of the user's levels:
///
///     on mains                         the level for mains
///     on battery, battery saver off    the level for battery
///     on battery, battery saver on     the level for mains
void LeavePowerSavingMode();

}  // namespace tessaview

#pragma once

#include <cstdint>

namespace tessaview {

/// What SYSTEM_POWER_STATUS says of the power source (ACLineStatus).
inline constexpr std::uint32_t kOnBattery = 0, kOnMains = 1, kUnknownSource = 255;

/// The power settings as they stand now: what the system said last, and the user's choices.
struct Settings {
  std::uint32_t acLineStatus = 0;          // kOnBattery until it was read for the first time
  std::uint32_t batterySaverOn = 0;        // 1 while Windows' battery saver is on
  std::uint32_t PowerSaving = 0;           // 1 when the user allows dimming on battery
  std::uint32_t UserBacklightValue = 0;    // the user's backlight level on mains, firmware units
  std::uint32_t UserBacklightValueDC = 0;  // the same on battery
};

/// The power settings. Main thread, as all that follows.
[[nodiscard]] Settings gSettings();

/// Power saving on battery is wanted: `PowerSaving` of the settings file was 1, or the UI said so since.
[[nodiscard]] bool gPowerSavingEnabled();

/// Takes the user's choices from the settings file.
void LoadSettings();

/// Notes what the system says of the power source and of battery saver.
void NotePowerSource(std::uint32_t acLineStatus, std::uint32_t batterySaverOn);

/// Stores the user's choice about power saving, in memory and in the settings file.
void StorePowerSaving(bool wanted);

/// Stores a backlight level for mains or battery, whichever the machine runs on, in memory and in the settings file.
/// Anything but a known mains supply counts as battery.
void StoreBacklight(std::int32_t level);

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "power/settings.h"

namespace tessaview {

/// A backlight percentage as the UI speaks it, in firmware units: trunc(percentage x 2.555).
[[nodiscard]] std::int32_t LevelFromPercentage(std::int32_t percentage);

/// A level as a percentage: trunc(level / 2.555).
[[nodiscard]] std::int32_t PercentageFromLevel(std::uint32_t level);

/// A level as the panel may be driven: never darker than 10, never above 255.
[[nodiscard]] std::uint32_t DrivableLevel(std::uint32_t level);

/// True for a level that battery saver would dim.
[[nodiscard]] bool IsBright(std::uint32_t level);

/// The level to apply on battery: the user's, capped while battery saver is on and may dim the panel.
[[nodiscard]] std::uint32_t BatteryLevel(const Settings& settings);

/// The backlight's present level, 0..255; full brightness when it cannot be read.
[[nodiscard]] std::uint32_t ReadBacklight();

}  // namespace tessaview

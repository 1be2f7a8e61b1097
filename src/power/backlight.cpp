#include "power/backlight.h"

#include <algorithm>

#include "core/numbers.h"
#include "power/firmware.h"
#include "power/settings_file.h"

namespace tessaview {
namespace {

constexpr double kLevelsPerPercent = 2.555;
constexpr std::uint32_t kLevelBits = 0xFF;  // of the backlight status; the other bits say something else
constexpr std::uint32_t kSaverCap = 58;     // with battery saver on, brighter levels become this

}  // namespace

std::int32_t LevelFromPercentage(std::int32_t percentage) {
  return TruncateToInt32(percentage * kLevelsPerPercent);
}

std::int32_t PercentageFromLevel(std::uint32_t level) {
  return TruncateToInt32(level / kLevelsPerPercent);
}

std::uint32_t DrivableLevel(std::uint32_t level) {
  if (static_cast<std::int32_t>(level) < 0) return kDarkestLevel;  // a negative number, as a UI may have asked for
  return std::clamp(level, kDarkestLevel, kBrightestLevel);
}

bool IsBright(std::uint32_t level) {
  return level > kSaverCap;
}

std::uint32_t BatteryLevel(const Settings& settings) {
  const auto level = DrivableLevel(settings.UserBacklightValueDC);
  const bool saving = settings.PowerSaving == 1 && settings.batterySaverOn == 1;
  return saving && IsBright(level) ? kSaverCap : level;
}

std::uint32_t ReadBacklight() {
  const auto status = ACPI_ZRV_DSTS(FirmwareId::Backlight);
  return status ? *status & kLevelBits : kBrightestLevel;
}

}  // namespace tessaview

#include "core/settings.h"

#include <string>

#include "core/settings_file.h"

namespace tessaview {

ProcessWide<Settings> gSettings;
ProcessWide<bool> gPowerSavingEnabled;

void LoadSettings() {
  const auto backlight = ReadSettingNumber(kBacklightKey, kDefaultBacklight);
  const auto backlightDC = ReadSettingNumber(kBacklightDCKey, kDefaultBacklight);
  const auto powerSaving = ReadSettingNumber(kPowerSavingKey, 1);
  gSettings.update([&](Settings& settings) {
    settings.UserBacklightValue = backlight;
    settings.UserBacklightValueDC = backlightDC;
    settings.PowerSaving = powerSaving;
  });
  gPowerSavingEnabled.set(powerSaving == 1);
}

void StorePowerSaving(bool wanted) {
  gPowerSavingEnabled.set(wanted);
  gSettings.update([&](Settings& settings) { settings.PowerSaving = wanted ? 1 : 0; });
  WriteSetting(kPowerSavingKey, wanted ? L"1" : L"0");
}

void StoreBacklight(std::int32_t level) {
  const bool onMains = gSettings.get().acLineStatus == kOnMains;
  WriteSetting(onMains ? kBacklightKey : kBacklightDCKey, std::to_wstring(level).c_str());
  gSettings.update([&](Settings& settings) {
    (onMains ? settings.UserBacklightValue : settings.UserBacklightValueDC) = static_cast<std::uint32_t>(level);
  });
}

}  // namespace tessaview

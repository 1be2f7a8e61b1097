#include "power/settings.h"

#include <string>

#include "core/state.h"
#include "power/settings_file.h"

namespace tessaview {
namespace {

Shared<Settings> gNow;

}  // namespace

Settings gSettings() {
  return gNow.get();
}

bool gPowerSavingEnabled() {
  return gNow.get().PowerSaving == 1;
}

void LoadSettings() {
  const auto backlight = ReadSettingNumber(kBacklightKey, kDefaultBacklight);
  const auto backlightDC = ReadSettingNumber(kBacklightDCKey, kDefaultBacklight);
  const auto powerSaving = ReadSettingNumber(kPowerSavingKey, 1);
  gNow.Update([&](Settings& settings) {
    settings.UserBacklightValue = backlight;
    settings.UserBacklightValueDC = backlightDC;
    settings.PowerSaving = powerSaving;
  });
}

void NotePowerSource(std::uint32_t acLineStatus, std::uint32_t batterySaverOn) {
  gNow.Update([&](Settings& settings) {
    settings.acLineStatus = acLineStatus;
    settings.batterySaverOn = batterySaverOn;
  });
}

void StorePowerSaving(bool wanted) {
  gNow.Update([&](Settings& settings) { settings.PowerSaving = wanted ? 1 : 0; });
  WriteSetting(kPowerSavingKey, wanted ? L"1" : L"0");
}

void StoreBacklight(std::int32_t level) {
  const bool onMains = gNow.get().acLineStatus == kOnMains;
  WriteSetting(onMains ? kBacklightKey : kBacklightDCKey, std::to_wstring(level).c_str());
  gNow.Update([&](Settings& settings) {
    (onMains ? settings.UserBacklightValue : settings.UserBacklightValueDC) = static_cast<std::uint32_t>(level);
  });
}

}  // namespace tessaview

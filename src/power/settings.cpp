#include "power/settings.h"

#include <string>

#include "core/state.h"
#include "power/settings_file.h"

namespace tessaview {
namespace {

MainThreadOnly<Settings> gNow;

}  // namespace

Settings gSettings() {
  return *gNow;
}

bool gPowerSavingEnabled() {
  return gNow->PowerSaving == 1;
}

void LoadSettings() {
  gNow->UserBacklightValue = ReadSettingNumber(kBacklightKey, kDefaultBacklight);
  gNow->UserBacklightValueDC = ReadSettingNumber(kBacklightDCKey, kDefaultBacklight);
  gNow->PowerSaving = ReadSettingNumber(kPowerSavingKey, 1);
}

void NotePowerSource(std::uint32_t acLineStatus, std::uint32_t batterySaverOn) {
  gNow->acLineStatus = acLineStatus;
  gNow->batterySaverOn = batterySaverOn;
}

void StorePowerSaving(bool wanted) {
  gNow->PowerSaving = wanted ? 1 : 0;
  WriteSetting(kPowerSavingKey, wanted ? L"1" : L"0");
}

void StoreBacklight(std::int32_t level) {
  const bool onMains = gNow->acLineStatus == kOnMains;
  WriteSetting(onMains ? kBacklightKey : kBacklightDCKey, std::to_wstring(level).c_str());
  (onMains ? gNow->UserBacklightValue : gNow->UserBacklightValueDC) = static_cast<std::uint32_t>(level);
}

}  // namespace tessaview

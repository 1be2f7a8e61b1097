// The power GUIDs are defined, not only declared, in the one file that reads the headers with INITGUID.
#define INITGUID
#include "os/win32/power_settings.h"

#include <algorithm>
#include <array>

namespace os::win32 {
namespace {

// GUID_POWER_SAVING_STATUS, {E00958C0-C213-4ACE-AC77-FECCED2EEEA5}
constexpr GUID kPowerSavingStatus{0xE00958C0, 0xC213, 0x4ACE, {0xAC, 0x77, 0xFE, 0xCC, 0xED, 0x2E, 0xEE, 0xA5}};

struct KnownSetting {
  PowerSetting setting;
  const GUID& guid;
};

constexpr std::array<KnownSetting, 5> kKnownSettings{{
    {PowerSetting::ConsoleDisplayState, GUID_CONSOLE_DISPLAY_STATE},
    {PowerSetting::LidSwitchState, GUID_LIDSWITCH_STATE_CHANGE},
    {PowerSetting::PowerSavingStatus, kPowerSavingStatus},
    {PowerSetting::AcDcPowerSource, GUID_ACDC_POWER_SOURCE},
    {PowerSetting::LidCloseAction, GUID_LIDCLOSE_ACTION},
}};

}  // namespace

const GUID& GuidOf(PowerSetting setting) {
  return std::ranges::find(kKnownSettings, setting, &KnownSetting::setting)->guid;
}

const GUID& SystemButtonSubgroup() {
  return GUID_SYSTEM_BUTTON_SUBGROUP;
}

std::optional<PowerSetting> PowerSettingOf(const GUID& guid) {
  for (const auto& known : kKnownSettings) {
    if (IsEqualGUID(known.guid, guid) != FALSE) return known.setting;
  }
  return {};
}

}  // namespace os::win32

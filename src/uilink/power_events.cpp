#include "uilink/power_events.h"

#include "core/trace_log.h"
#include "power/power_saving.h"

namespace tessaview {
namespace {

// Published values of the power broadcasts (PBT_*).
constexpr std::uint32_t kSuspend = 4, kResumeSuspend = 7, kPowerStatusChange = 10, kResumeAutomatic = 18;

constexpr std::uint32_t kMainsPower = 0, kBatteryPower = 1;  // values of GUID_ACDC_POWER_SOURCE

void OnPowerSource(std::uint32_t source) {
  if (source == kMainsPower) {
    Log(L"The computer is powered by an AC power source. \n");
    LeavePowerSavingMode();
  } else if (source == kBatteryPower) {
    Log(L"The computer is powered by an onboard battery power source. \n");
    EnterPowerSavingMode();
  }
}

void OnBatterySaver(bool on) {
  if (on) {
    Log(L"Battery saver is on. \n");
    EnterPowerSavingMode();
  } else {
    Log(L"Battery saver is off. \n");
    LeavePowerSavingMode();
  }
}

}  // namespace

void OnPowerBroadcast(std::uint32_t event) {
  switch (event) {
    case kSuspend:
      return Log(L"PBT_APMSUSPEND \n");
    case kResumeSuspend:
      return Log(L"PBT_APMRESUMESUSPEND \n");
    case kPowerStatusChange:
      return Log(L"PBT_APMPOWERSTATUSCHANGE \n");
    case kResumeAutomatic:
      return Log(L"PBT_APMRESUMEAUTOMATIC \n");
    default:
      return;
  }
}

void OnPowerSetting(os::PowerSetting setting, std::uint32_t value) {
  if (setting == os::PowerSetting::AcDcPowerSource) OnPowerSource(value);
  if (setting == os::PowerSetting::PowerSavingStatus) OnBatterySaver(value != 0);
}

}  // namespace tessaview

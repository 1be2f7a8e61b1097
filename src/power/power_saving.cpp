#include "power/power_saving.h"

#include "core/trace_log.h"
#include "os/power.h"
#include "power/backlight.h"
#include "power/firmware.h"
#include "power/settings.h"

namespace tessaview {

bool CheckCurrentMode() {
  if (ACPI_ZRV_DSTS(FirmwareId::PanelPower) != kPanelReady) return false;
  const auto status = os::QueryPowerStatus();
  if (!status) {
    Log(L"[PowerSaving] CheckCurrentMode GetLastError = %d", status.error());
    return false;
  }
  NotePowerSource(status->acLineStatus, status->systemStatusFlag);
  if (status->acLineStatus == kUnknownSource) {
    Log(L"[PowerSaving] BATTERY_UNKNOWN_STATUS");
    return false;
  }
  Log(L"[PowerSaving] ACDCMode = %d , BatterySaverMode = %d", status->acLineStatus, status->systemStatusFlag);
  return true;
}

void EnterPowerSavingMode() {
  Log(L"[PowerSaving] UI flag = %d", gSettings().PowerSaving);
  if (!CheckCurrentMode()) return;

  const auto settings = gSettings();
  if (settings.acLineStatus != kOnBattery) return;
  const auto level = BatteryLevel(settings);
  Log(L"[EnterPowerSavingMode] BacklightValue = %d, UserBacklightValueDC = %d", level, settings.UserBacklightValueDC);
  ACPI_ZRV_DEVS(level);
}

void LeavePowerSavingMode() {
  Log(L"[PowerSaving] UI flag = %d", gSettings().PowerSaving);
  if (!CheckCurrentMode()) return;

  const auto settings = gSettings();
  const bool plainBattery = settings.acLineStatus == kOnBattery && settings.batterySaverOn == 0;
  const auto level = DrivableLevel(plainBattery ? settings.UserBacklightValueDC : settings.UserBacklightValue);
  Log(L"[LeavePowerSavingMode] BacklightValue = %d, UserBacklightValue = %d", level, settings.UserBacklightValue);
  ACPI_ZRV_DEVS(level);
}

}  // namespace tessaview

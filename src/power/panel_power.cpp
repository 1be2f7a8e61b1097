#include "power/panel_power.h"

#include "core/trace_log.h"
#include "power/backlight.h"
#include "power/firmware.h"
#include "power/panel_status.h"
#include "power/settings.h"
#include "power/settings_file.h"
#include "touch/touch_pad.h"

namespace tessaview {
namespace {

std::uint32_t MainsLevel() {
  const auto level = DrivableLevel(ReadSettingNumber(kBacklightKey, kDarkestLevel));
  Log(L"[TessaviewPowerControl] BacklightValue ( ini = %d , WMI = 0X%X ) \n ", level, level);
  return level;
}

std::uint32_t LevelOnBattery(const Settings& settings) {
  Log(L"[TessaviewPowerControl] is DC mode, EnterPowerSavingMode \n");
  const auto level = BatteryLevel(settings);
  Log(L"[TessaviewPowerControl] BacklightValue = %d, UserBacklightValueDC = %d", level, settings.UserBacklightValueDC);
  return level;
}

/// The panel is switched on by giving it a backlight level; its power register is never written with 1.
void PowerOn() {
  Log(L"[TessaviewPowerControl] Tessaview Power On Setting \n");
  const auto settings = gSettings();
  const auto level = settings.acLineStatus == kOnBattery ? LevelOnBattery(settings) : MainsLevel();

  const FirmwareSequence firmware;
  if (!FirmwareDEVS(firmware, FirmwareId::Backlight, level)) return;
  Log(L"[TessaviewPowerControl] Tessaview Backlight On (Set 0x00050032, 0X%X) \n ", level);
  Log(L"[TessaviewPowerControl] Set ini : [PowerStatus] Tessaview = On \n");
  WriteSetting(kTessaviewKey, L"On");
}

void PowerOff() {
  Log(L"[TessaviewPowerControl] Tessaview Power Off Setting \n");
  const FirmwareSequence firmware;
  if (!FirmwareDEVS(firmware, FirmwareId::PanelPower, 0)) return;
  Log(L"[TessaviewPowerControl] Tessaview Power Off (Set 0x00050031, 0x00) \n ");
  Log(L"[TessaviewPowerControl] Set ini : [PowerStatus] Tessaview = Off \n");
  WriteSetting(kTessaviewKey, L"Off");
  Log(L"[TessaviewPowerControl] Set Cursor Mode \n");
  SetModetoTouchPad();
}

}  // namespace

void TessaviewPowerControl(bool on) {
  Log(L"[TessaviewPowerControl] -------- Start -------- \n");
  Log(L"[TessaviewPowerControl] Read ini = %ls \n", gSettingsPath());
  if (on) {
    PowerOn();
  } else {
    PowerOff();
  }
  Log(L"[TessaviewPowerControl] -------- End -------- \n");
  Update_UI_Status();
}

void ApplyIniPowerStatus() {
  switch (ReadSavedPower()) {
    case SavedPower::On:
      Log(L"Read ini file = Tessaview Power On \n");
      return TessaviewPowerControl(true);
    case SavedPower::Off:
      Log(L"Read ini file = Tessaview Power Off \n");
      return TessaviewPowerControl(false);
    case SavedPower::NoChoice:
      return;
  }
}

}  // namespace tessaview

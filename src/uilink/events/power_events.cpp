#include <utility>

#include "core/input_hooks.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "display/panel_nudge.h"
#include "display/virtual_monitor.h"
#include "power/firmware.h"
#include "power/lid_actions.h"
#include "power/panel_power.h"
#include "power/panel_status.h"
#include "power/power_saving.h"
#include "power/refresh_rate.h"
#include "power/settings.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/events/events.h"

namespace tessaview {
namespace {

// Published values of the power broadcasts (PBT_*).
constexpr std::uint32_t kSuspend = 4, kResumeSuspend = 7, kPowerStatusChange = 10, kResumeAutomatic = 18;

// Published values of the settings.
constexpr std::uint32_t kMainsPower = 0, kBatteryPower = 1;                   // GUID_ACDC_POWER_SOURCE
constexpr std::uint32_t kLidClosed = 0, kLidOpened = 1;                       // GUID_LIDSWITCH_STATE_CHANGE
constexpr std::uint32_t kDisplayOff = 0, kDisplayOn = 1, kDisplayDimmed = 2;  // GUID_CONSOLE_DISPLAY_STATE

/// The registration itself delivers the state of lid and display; this first notification of each is no change.
struct FirstNotifications {
  bool gFirstLidOpenPending = false, gFirstDisplayOnPending = false;  // still to come
};

MainThreadOnly<FirstNotifications> gPending;

bool IsG2() {
  return InitGenerationCheck() == Generation::G2;
}

void OnPowerSource(std::uint32_t source) {
  if (source == kMainsPower) {
    Log(L"The computer is powered by an AC power source. \n");
    LeavePowerSavingMode();
    if (IsG2()) LidClosedAction(true);
  } else if (source == kBatteryPower) {
    Log(L"The computer is powered by an onboard battery power source. \n");
    EnterPowerSavingMode();
    if (IsG2()) LidClosedAction(false);
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

/// The user is back at a lit panel, or will be once signed in.
void ComeBack() {
  ApplyIniPowerStatus();
  TakeMaskOffAtDesktop();
}

void OnLidOpened() {
  Log(L"[DisplayChange] NB Open \n");
  if (!std::exchange(gPending->gFirstLidOpenPending, false)) {
    LidOpenMoveCPanelMonitorOnePixel(gSettings().acLineStatus != kOnBattery);
  }
  ComeBack();
}

void OnLidClosed() {
  KeepMaskOn();
  Log(L"[DisplayChange] NB Closed \n");
  Log(L"[DisplayChange] Send message to UI : POWEROFF \n");
  TellPanelOff();
  if (!gLidDoNothing()) return;
  Log(L"[DisplayChange] NB closed and lid off setting is do nothing. Send message to UI : OPENMASK \n");
  TellUi(texts::kOpenMask);
}

void OnDisplayOff() {
  KeepMaskOn();
  Log(L"The display is off \n");
  TellUi(texts::kOpenMask);
}

void LayDesktopOutAgain() {
  if (CheckVirtualMonitor()) {
    Log(L"[DisplayOn] Virtual monitor\n");
    MoveCPanelMonitorOnePixel();
  } else {
    Log(L"[DisplayOn] No virtual monitor, send message to UI.\n");
    TellUi(texts::kSetWallpaper);
  }
}

void OnDisplayOn() {
  Log(L"The display is on \n");
  const bool isChange = !std::exchange(gPending->gFirstDisplayOnPending, false);
  if (isChange) LayDesktopOutAgain();
  ComeBack();
  if (isChange) ReviveHooks();
}

/// What closing the lid does: 0 nothing, 2 hibernate, 3 shut down, 6 another. Sleep (1) is absent on purpose: it leaves
/// the flag and the firmware as they were.
void OnLidCloseAction(std::uint32_t action) {
  if (!IsG2()) return;
  if (action == 0) {
    Log(L"GUID_LIDCLOSE_ACTION lid off setting is do nothing. \n");
    SetLidDoNothing(true);
  } else if (action == 2 || action == 3 || action == 6) {
    Log(L"GUID_LIDCLOSE_ACTION lid off setting is not do nothing. \n");
    SetLidDoNothing(false);
  }
}

}  // namespace

void CatchUp() {
  LoadSettings();  // the file is the other user's as well
  SetOwedRefreshRate();
  if (IsG2()) LidClosedAction(gSettings().acLineStatus != kOnBattery);
  ApplyIniPowerStatus();
  KeepCPanelInPlace();
}

void ExpectFirstNotifications() {
  *gPending = {.gFirstLidOpenPending = true, .gFirstDisplayOnPending = true};
}

void OnPowerBroadcast(std::uint32_t event) {
  switch (event) {
    case kSuspend:
      return Log(L"PBT_APMSUSPEND \n");
    case kResumeSuspend:
      return Log(L"PBT_APMRESUMESUSPEND \n");
    case kPowerStatusChange:
      return Log(L"PBT_APMPOWERSTATUSCHANGE \n");
    case kResumeAutomatic:
      Log(L"PBT_APMRESUMEAUTOMATIC \n");
      return ReviveHooks();
    default:
      return;
  }
}

void OnPowerSetting(os::PowerSetting setting, std::uint32_t value) {
  switch (setting) {
    case os::PowerSetting::LidSwitchState:
      if (value == kLidOpened) OnLidOpened();
      if (value == kLidClosed) OnLidClosed();
      return;
    case os::PowerSetting::AcDcPowerSource:
      return OnPowerSource(value);
    case os::PowerSetting::ConsoleDisplayState:
      if (value == kDisplayOff) OnDisplayOff();
      if (value == kDisplayOn) OnDisplayOn();
      if (value == kDisplayDimmed) Log(L"The display is dimmed \n");
      return;
    case os::PowerSetting::PowerSavingStatus:
      return OnBatterySaver(value != 0);
    case os::PowerSetting::LidCloseAction:
      return OnLidCloseAction(value);
  }
}

}  // namespace tessaview

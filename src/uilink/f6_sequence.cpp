#include "uilink/f6_sequence.h"

#include "core/factory_config.h"
#include "core/named_events.h"
#include "core/service_timers.h"
#include "core/settings_file.h"
#include "core/trace_log.h"
#include "display/mode_reset.h"
#include "power/panel_power.h"
#include "uilink/ui_channel.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kModes = 3;
constexpr std::int64_t kPanelOff = 2, kPanelOn = 3;  // what the component may want at the end of a sequence

/// The mode the sequence began in, as it is logged.
F6Mode LoggedStart(std::uint32_t presses) {
  if (gF6PanelOn.get()) {
    Log(L"----- F6 start as TESSAVIEW and switch time = %d ----- \n", presses);
    return F6Mode::Panel;
  }
  if (gTouchPadEnabled.get()) {
    Log(L"----- F6 start as TOUCHPAD and switch time = %d ----- \n", presses);
    return F6Mode::TouchPad;
  }
  Log(L"----- F6 start as ALLOFF and switch time = %d ----- \n", presses);
  return F6Mode::AllOff;
}

/// With the panel on and the touch pad off the presses do not count: the result stays what it was.
F6Mode ResultingMode() {
  if (gF6PanelOn.get() && !gTouchPadEnabled.get()) return gF6Result.get();
  const auto presses = gF6SwitchCount.get();
  return ModeAfter(LoggedStart(presses), presses);
}

void Report(F6Mode mode) {
  switch (mode) {
    case F6Mode::Panel:
      Log(L"----------------- TESSAVIEW_POWER_STATUS_TESSAVIEW --------------------- \n");
      return RecordUsage(L"TESSAVIEW_F6_TESSAVIEW");
    case F6Mode::TouchPad:
      Log(L"----------------- TESSAVIEW_POWER_STATUS_TOUCHPAD --------------------- \n");
      return RecordUsage(L"TESSAVIEW_F6_TOUCHPAD");
    case F6Mode::AllOff:
      Log(L"----------------- TESSAVIEW_POWER_STATUS_ALLOFF --------------------- \n");
      return RecordUsage(L"TESSAVIEW_F6_ALLOFF");
  }
}

void SwitchPanelOff() {
  Log(L"----------------- F6 send Tessaview Off --------------------- \n");
  TessaviewPowerControl(false);
  ResetPowerEvent();
  if (IsRetailDemo()) StartRetailDemoTimer();
}

void SwitchPanelOn() {
  Log(L"----------------- F6 send Tessaview On --------------------- \n");
  ReSetTessaviewMode();
  SetPowerEvent();
  if (IsRetailDemo()) StopRetailDemoTimer();
  SendUiText({.text = L"CLOSEMASK"});
}

}  // namespace

ProcessWide<bool> gF6PanelOn;
ProcessWide<std::uint32_t> gF6SwitchCount;
ProcessWide<F6Mode> gF6Result{F6Mode::Panel};
ProcessWide<bool> gTouchPadEnabled;

F6Mode ModeAfter(F6Mode start, std::uint32_t presses) {
  return static_cast<F6Mode>((static_cast<std::uint32_t>(start) + presses % kModes) % kModes);
}

void OnF6Press() {
  if (gF6SwitchCount.get() == 0) {
    const auto saved = ReadSavedPower();
    if (saved != SavedPower::NoChoice) gF6PanelOn.set(saved == SavedPower::On);
  }
  gF6SwitchCount.set(gF6SwitchCount.get() + 1);
}

void OnF6SequenceEnd(std::int64_t action) {
  const auto mode = ResultingMode();
  gF6Result.set(mode);
  Report(mode);
  gF6SwitchCount.set(0);
  gF6Result.set(F6Mode::Panel);

  if (action == kPanelOff) SwitchPanelOff();
  if (action == kPanelOn) SwitchPanelOn();
  ResetSwitchingEvent();
}

}  // namespace tessaview

#include "uilink/events/f6_sequence.h"

#include "core/factory_config.h"
#include "core/service_window.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "power/mode_reset.h"
#include "power/named_events.h"
#include "power/panel_power.h"
#include "power/settings_file.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kModes = 3;
constexpr std::int64_t kPanelOff = 2, kPanelOn = 3;  // what the component may want at the end of a sequence

/// The sequence of presses under way, and the touch pad's state as it was reported last.
struct Sequence {
  bool gF6PanelOn = false;           // the C panel counted as on when the sequence began
  std::uint32_t gF6SwitchCount = 0;  // presses so far
  bool gTouchPadEnabled = false;
};

MainThreadOnly<Sequence> gSequence;

/// The mode the sequence began in, as it is logged.
F6Mode LoggedStart(const Sequence& sequence) {
  const auto presses = sequence.gF6SwitchCount;
  if (sequence.gF6PanelOn) {
    Log(L"----- F6 start as TESSAVIEW and switch time = %d ----- \n", presses);
    return F6Mode::Panel;
  }
  if (sequence.gTouchPadEnabled) {
    Log(L"----- F6 start as TOUCHPAD and switch time = %d ----- \n", presses);
    return F6Mode::TouchPad;
  }
  Log(L"----- F6 start as ALLOFF and switch time = %d ----- \n", presses);
  return F6Mode::AllOff;
}

/// With the panel on and the touch pad off the presses do not count.
F6Mode ResultingMode(const Sequence& sequence) {
  if (sequence.gF6PanelOn && !sequence.gTouchPadEnabled) return F6Mode::Panel;
  return ModeAfter(LoggedStart(sequence), sequence.gF6SwitchCount);
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
  if (IsRetailDemo()) StartServiceTimer(ServiceTimer::RetailDemo);
}

void SwitchPanelOn() {
  Log(L"----------------- F6 send Tessaview On --------------------- \n");
  ReSetTessaviewMode();
  SetPowerEvent();
  if (IsRetailDemo()) StopServiceTimer(ServiceTimer::RetailDemo);
  TellUi(texts::kCloseMask);
}

}  // namespace

F6Mode ModeAfter(F6Mode start, std::uint32_t presses) {
  return static_cast<F6Mode>((static_cast<std::uint32_t>(start) + presses % kModes) % kModes);
}

void NoteTouchPadEnabled(bool enabled) {
  gSequence->gTouchPadEnabled = enabled;
}

void OnF6Press() {
  if (gSequence->gF6SwitchCount == 0) {
    const auto saved = ReadSavedPower();
    if (saved != SavedPower::NoChoice) gSequence->gF6PanelOn = saved == SavedPower::On;
  }
  ++gSequence->gF6SwitchCount;
}

void OnF6SequenceEnd(std::int64_t action) {
  Report(ResultingMode(*gSequence));
  gSequence->gF6SwitchCount = 0;

  if (action == kPanelOff) SwitchPanelOff();
  if (action == kPanelOn) SwitchPanelOn();
  ResetSwitchingEvent();
}

}  // namespace tessaview

// The laptop's form, its projection mode and the panel's refresh rate.
#include <windows.h>

#include <array>

#include "day/chapters.h"

namespace lab {
namespace {

/// The laptop is folded over to a tablet, or back.
void Fold(Day& day, bool over) {
  day.laptop().firmware.Set(kFlipState, over ? 1 : 0);
  Controller::PostHotKey(HotKey::FlipChanged);
}

/// The refresh rate of a display as Windows tells it, in hertz; 0 when it does not.
DWORD RefreshRateOf(const wchar_t* display) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  return EnumDisplaySettingsW(display, ENUM_CURRENT_SETTINGS, &mode) ? mode.dmDisplayFrequency : 0;
}

}  // namespace

void Flip(Day& day) {
  day.Chapter(L"The laptop is folded over and back");
  day.Happens(L"folded over");
  Fold(day, true);
  day.Check(day.UiHeard(L"received POWEROFF"), L"UI told POWEROFF");
  day.Picture(L"7-folded-over");
  day.Happens(L"unfolded");
  Fold(day, false);
  day.Check(day.Asked(L"DEVS 0x00050032 = 127"), L"panel on at its level for mains");
  day.Check(day.UiHeard(L"received POWERON"), L"UI told POWERON");
  day.Picture(L"8-panel-on");
}

void Projection(Day& day) {
  struct Mode {
    std::uint32_t topology;
    const wchar_t *name, *traced, *told;
  };
  constexpr std::array<Mode, 4> kModes{
      {{1, L"PC screen only", L"Win + P = INTERNAL Mode (PC screen only)", L"POWEROFF"},
       {2, L"duplicate", L"Win + P = CLONE Mode (Duplicate)", L"POWEROFF"},
       {8, L"second screen only", L"Win + P = EXTERNAL Mode (Second screen only)", L"POWEROFF"},
       {4, L"extend", L"Win + P = EXTEND Mode (Extend)", L"POWERON"}}};

  day.Chapter(L"Projection modes");
  day.Note(L"the desktop itself stays extended: here Windows' answer changes, and the controller asks when unfolded");
  for (const auto& mode : kModes) {
    day.Happens(mode.name);
    Day::State().topology = mode.topology;
    Fold(day, false);
    day.Check(day.Traced(mode.traced), L"the mode is recognised");
    day.Check(day.UiHeard(std::wstring(L"received ") + mode.told), std::wstring(L"UI told ") + mode.told);
  }
}

void RefreshRate(Day& day) {
  day.Chapter(L"The refresh rate");
  day.Happens(L"the UI sends GETFREQUENCY");
  const auto b = RefreshRateOf(L"\\\\.\\DISPLAY1"), c = RefreshRateOf(L"\\\\.\\DISPLAY2");
  day.Check(b != 0 && c != 0 && StandInUi::Send(L"GETFREQUENCY") &&
                day.UiHeard(L"received SETFREQUENCY (" + std::to_wstring(b) + L", " + std::to_wstring(c) + L")"),
            L"answered with the rates of both panels");
  day.Happens(L"the UI sends SETFREQUENCY with 30 Hz for the C panel");
  day.Check(StandInUi::SendByCommandLine(L"SETFREQUENCY 0 0 30") && day.Asked(L"DEVS 0x00050034 = 0"),
            L"firmware told");
  day.Check(day.Traced(L"Failed!! SetFirmwareEnvironmentVariable"),
            L"the firmware variable, which Wine does not have, is missed without harm");
  day.Happens(L"the UI sends SETFREQUENCY with 60 Hz");
  day.Check(StandInUi::SendByCommandLine(L"SETFREQUENCY 0 0 60") && day.Asked(L"DEVS 0x00050034 = 1"),
            L"firmware told");
}

}  // namespace lab

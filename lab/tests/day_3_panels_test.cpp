// The day's panels: the laptop's form, its projection mode, refresh rate and driver, where the panels are, lid and F6.
#include <windows.h>

#include <future>

#include "tests/lab_test.h"

namespace {

using namespace lab;

constexpr wchar_t kPanelOffDemand[] = L"DEVS 0x00050031 = 0";

/// The laptop is folded over to a tablet, or back.
void Fold(Laptop& laptop, bool over) {
  laptop.firmware.Set(kFlipState, over ? 1 : 0);
  Controller::PostHotKey(HotKey::FlipChanged);
}

TEST_F(Day, FoldedOverThePanelCountsAsOff) {
  Chapter(L"The laptop is folded over and back");
  Happens(L"folded over");
  Fold(laptop, true);
  Check(UiIsTold(L"POWEROFF"), L"UI told POWEROFF");
  Check(IsStored("Tessaview", "On"), L"settings remember what the user chose");
  Picture(L"7-folded-over");
  Happens(L"unfolded");
  Fold(laptop, false);
  Check(Asked(ToLevelOnMains()), L"panel on at its level for mains");
  Check(UiIsTold(L"POWERON"), L"UI told POWERON");
  Picture(L"8-panel-on");
}

TEST_F(Day, TheProjectionModeIsRecognised) {
  const struct {
    std::uint32_t topology;
    std::wstring name, traced, told;
  } modes[]{{1, L"PC screen only", L"INTERNAL Mode (PC screen only)", L"POWEROFF"},
            {2, L"duplicate", L"CLONE Mode (Duplicate)", L"POWEROFF"},
            {8, L"second screen only", L"EXTERNAL Mode (Second screen only)", L"POWEROFF"},
            {4, L"extend", L"EXTEND Mode (Extend)", L"POWERON"}};

  Chapter(L"Projection modes");
  Note(L"the desktop itself stays extended: here Windows' answer changes, and the controller asks when unfolded");
  for (const auto& mode : modes) {
    Happens(mode.name);
    state.topology = mode.topology;
    Fold(laptop, false);
    Check(Traced(L"Win + P = " + mode.traced), L"the mode is recognised");
    Check(UiIsTold(mode.told), L"UI told " + mode.told);
  }
}

/// The refresh rate of a display as Windows tells it, in hertz; 0 when it does not.
DWORD RefreshRateOf(const wchar_t* display) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  return EnumDisplaySettingsW(display, ENUM_CURRENT_SETTINGS, &mode) ? mode.dmDisplayFrequency : 0;
}

TEST_F(Day, TheRefreshRateIsReadAndSet) {
  Chapter(L"The refresh rate");
  Happens(L"the UI sends GETFREQUENCY");
  const auto b = RefreshRateOf(L"\\\\.\\DISPLAY1"), c = RefreshRateOf(L"\\\\.\\DISPLAY2");
  Check(b != 0 && c != 0 && StandInUi::Send(L"GETFREQUENCY") &&
            UiIsTold(L"SETFREQUENCY (" + std::to_wstring(b) + L", " + std::to_wstring(c) + L")"),
        L"answered with the rates of both panels");
  Happens(L"the UI sends SETFREQUENCY with 30 Hz for the C panel");
  Check(StandInUi::SendByCommandLine(L"SETFREQUENCY 0 0 30") && Asked(L"DEVS 0x00050034 = 0"), L"firmware told");
  Check(Traced(L"Failed!! SetFirmwareEnvironmentVariable"),
        L"the firmware variable, which Wine does not have, is missed without harm");
  Happens(L"the UI sends SETFREQUENCY with 60 Hz");
  Check(StandInUi::SendByCommandLine(L"SETFREQUENCY 0 0 60") && Asked(L"DEVS 0x00050034 = 1"), L"firmware told");
}

TEST_F(Day, WithoutTheDriverTheUiIsServedOn) {
  FirmwareDriver& firmware = laptop.firmware;
  Chapter(L"The firmware driver goes and comes back");
  Happens(L"the driver is stopped");
  Check(firmware.Stop() && Eventually([&] { return !firmware.Set(kBacklight, 1); }), L"its device does not open");
  Check(StandInUi::Send(L"BLGET") && UiIsTold(L"BLSET 99"), L"BLGET answered all the same, as for the brightest level");
  Happens(L"folded over and back, which nobody can ask the firmware about");
  Controller::PostHotKey(HotKey::FlipChanged);
  const bool servesOn = laptop.WaitForController() && StandInUi::Send(L"BLGET");
  Check(servesOn && UiIsTold(L"BLSET 99") && UiWords(L"BLSET", 1) == std::vector<std::wstring>{L"BLSET"},
        L"the UI is told nothing of it, and its next BLGET is answered");
  Happens(L"the driver is started, with the registers that it had when it was new");
  Check(firmware.Start(), L"its device answers");
  Check(StandInUi::Send(L"BLGET") && UiIsTold(L"BLSET 45"), L"BLGET answered with 45 percent again");
}

/// Waits until Wine's desktop has listed the monitors anew, which it does many times after each change of displays.
bool MonitorsAreListed() {
  return Deliver(GetDesktopWindow(), WM_NULL, 0, 0);
}

TEST_F(Day, TheCPanelThatAnotherProgramMovedOrTurnedIsPutBack) {
  const std::wstring check = L"[CheckCPanel_Position_Orientation] ", putBack = check + L"SetMonitorEx bErrorCode = 1";
  Chapter(L"Another program moves and turns the C panel");
  Note(L"the UI is busy for a while, and everybody waits for it: otherwise there would be nothing to see");
  Happens(L"the C panel is moved beside the B panel");
  const bool hangs = StandInUi::Hang();
  // Whoever changes the displays waits until all windows have heard of it.
  auto placed = std::async(std::launch::async, [] { return PlaceCPanel(1920, 0, kTurnedUpright); });
  Check(hangs && Eventually([] { return !IsCPanelInPlace(); }) && MonitorsAreListed(), L"it is out of its place");
  Picture(L"9-panel-moved-away");
  StandInUi::Wake();
  Check(placed.get() && Traced(putBack) && Eventually(IsCPanelInPlace) && MonitorsAreListed(),
        L"put back below the B panel");
  Picture(L"10-panel-put-back");
  Happens(L"the C panel is turned upside down");
  Check(PlaceCPanel(0, 1080, kTurnedOver) && Traced(check + L"isWrongPosition = 0, isWrongOrientation = 1") &&
            Traced(putBack),
        L"turned back");
  const bool isServed = MonitorsAreListed() && laptop.WaitForController();
  laptop.trace.WaitUntilQuiet(std::chrono::milliseconds(300));  // a change of displays has an aftermath
  const auto served = laptop.trace.Mark();
  Check(isServed && laptop.WaitForController() && IsCPanelInPlace() &&
            !laptop.trace.Contains(check + L"isWrong*", served),
        L"and everything is at rest");
}

TEST_F(Day, LidAndDisplayMaskThePanelAsTheUserWantsTheLidToAct) {
  constexpr std::uint32_t kClosed = 0, kOpened = 1, kDark = 0, kOn = 1, kDoNothing = 0, kHibernate = 2;
  const auto becomes = Controller::NotifyPowerSetting;
  Chapter(L"The lid");
  Happens(L"the user wants that closing the lid does nothing");
  Check(becomes(kLidCloseAction, kDoNothing) && Asked(L"DEVS 0x00050035 = 0"),
        L"firmware told to leave the panel alone");
  Happens(L"the lid is closed");
  Check(becomes(kLidSwitchState, kClosed) && UiIsTold(L"POWEROFF") && UiIsTold(L"OPENMASK"),
        L"UI told POWEROFF, and OPENMASK because the machine goes on");
  Happens(L"the lid is opened");
  Check(becomes(kLidSwitchState, kOpened) && UiIsTold(L"POWERON") && UiIsTold(L"CLOSEMASK"),
        L"UI told POWERON and CLOSEMASK");
  Happens(L"the display goes dark, and comes on again");
  Check(becomes(kConsoleDisplayState, kDark) && UiIsTold(L"OPENMASK") && becomes(kConsoleDisplayState, kOn) &&
            UiIsTold(L"CLOSEMASK"),
        L"UI told OPENMASK, then CLOSEMASK");
  Happens(L"the user wants that closing the lid hibernates");
  Check(becomes(kLidCloseAction, kHibernate) && Asked(L"DEVS 0x00050035 = 1"),
        L"firmware told to switch the panel off");
}

TEST_F(Day, F6SwitchesThePanelOffAndOn) {
  Chapter(L"F6: the C panel off");
  Happens(L"F6 is pressed once");
  Controller::PressF6(1, kF6PanelOff);
  Check(Asked(kPanelOffDemand) && laptop.firmware.Read(kPanelPower) == kPanelOff &&
            Demands() == std::vector<std::wstring>{kPanelOffDemand},
        L"firmware told to power the panel off, and it is");
  Check(PadGot(kCursorReport), L"touch surface switched to a touch pad");
  Check(UiIsTold(L"POWEROFF"), L"UI told POWEROFF");
  Check(IsStored("Tessaview", "Off"), L"settings remember Off");
  Picture(L"11-panel-off");
  Happens(L"folded over and back");
  Controller::PostHotKey(HotKey::FlipChanged);
  Check(Traced(L"Read ini file = Tessaview Power Off") && Asked(kPanelOffDemand),
        L"the panel stays off, as the user chose");
  Happens(L"F6 is pressed twice");
  Controller::PressF6(2, kF6PanelOn);
  Check(Traced(L"----- F6 start as TOUCHPAD and switch time = 2 -----") && Used(L"TESSAVIEW_F6_TESSAVIEW"),
        L"understood as the wish for the panel");
  Check(Asked(ToLevelOnMains()) && UiIsTold(L"CLOSEMASK"), L"panel on at its level for mains, UI told CLOSEMASK");
  Check(Patched(L"SetDisplayConfig with 0 paths, flags 132"), L"displays extended, at once");
  Check(IsStored("Tessaview", "On"), L"settings remember On");
  Picture(L"12-panel-back-on");
}

}  // namespace

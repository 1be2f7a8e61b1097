// The day's morning: the controller starts and brings up the UI; the panel is as bright as its user wants it.
#include "kit/hex_text.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

TEST_F(Morning, TheUiIsLaunchedOnceItsPackageIsThere) {
  Chapter(L"The controller starts");
  Happens(L"the UI's package is not installed yet");
  state.packageCheck = kPackageMissing;
  ASSERT_TRUE(Check(laptop.controller.Start(), L"TessaviewService.exe runs"));
  ASSERT_TRUE(Check(Traced(L" No Found Package"), L"the package check, run as the user, finds nothing"));
  Happens(L"half a second goes by");
  Check(Traced(L" No Found Package") && UiTalk().empty(), L"it looks again, and launches no UI meanwhile");
  Happens(L"the package check is denied its answer");
  state.packageCheck = ERROR_ACCESS_DENIED;
  Check(Traced(L" PackageCheck Fail , ExitCode = -2147024891") && UiTalk().empty(), L"that is no answer");
  Happens(L"the UI's package is installed");
  state.packageCheck = kPackageInstalled;
  Check(Traced(L" Found Package"), L"it is found when it is looked for again");
  Check(laptop.uiTalk.WaitFor(L"activated 7C31A0D4.TessaviewMaster_*"), L"UI activated by its application id");
  ASSERT_TRUE(Check(laptop.WaitForController(), L"the controller serves its window"));
  ASSERT_TRUE(Check(StandInUi::IsThere() && Used(L"UI_EXIST_WITH_CHECKING_TIMES_1"), L"UI has its window"));

  // What the controller had done on the way, from its first line on.
  Check(laptop.trace.WaitFor(L"[InitialDisplay] Global gBPanel X: 0, Y: 0, Wdith: 1920, Height: 1080") &&
            laptop.trace.WaitFor(L"[InitialDisplay] Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515"),
        L"B and C panel found where they are");
  Check(laptop.trace.WaitFor(L"Find TouchPad Vid & Pid Success!") &&
            laptop.trace.WaitFor(L"Get Rawinput hDevice of CPanel_TouchScreen successed"),
        L"touch pad and touch screen found");
  Check(laptop.requests.WaitFor(L"DEVS 0x00050032 = 116"), L"panel powered on at its default level");
  Check(IsStored("Tessaview", "On") && IsStored("Backlight", "116") && IsStored("BacklightDC", "116") &&
            IsStored("PowerSaving", "1") && IsStored("Mode", "Cursor"),
        L"settings file made with its defaults");
  Check(laptop.patched.WaitFor(L"user of session 1"), L"programs started for the user at the console");
  Check(laptop.trace.WaitFor(L"The computer is powered by an AC power source."), L"Windows tells that it is on mains");
  Picture(L"1-ui-launched");

  Chapter(L"The controller hears what it was started into");
  Happens(L"the touch pad is enabled");
  Controller::PostTouchPadStatus(true);
  Check(UiIsTold(L"GETTOUCHPAD"), L"UI told GETTOUCHPAD");
}

TEST_F(Day, TheUiReadsAndSetsTheBacklight) {
  Chapter(L"The UI asks for the backlight and sets it");
  Happens(L"the UI sends BLGET");
  ASSERT_TRUE(laptop.firmware.Set(kBacklight, 116));
  Check(StandInUi::Send(L"BLGET") && UiIsTold(L"BLSET 45"), L"answered with 45 percent, level 116");
  Happens(L"the backlight goes to level 255, and BLGET is sent from the command line");
  ASSERT_TRUE(laptop.firmware.Set(kBacklight, 255));
  Check(StandInUi::SendByCommandLine(L"BLGET") && UiIsTold(L"BLSET 99"), L"answered with 99 percent");
  Happens(L"the UI sends BLSET 50");
  Check(StandInUi::Send(L"BLSET", {.handle = 50}) && IsStored("Backlight", "127") && IsStored("BacklightDC", "116"),
        L"level 127 stored for mains");
}

TEST_F(Day, OnBatteryThePanelIsSparedUnlessTheUserForbidsIt) {
  Chapter(L"Battery and battery saver");
  Happens(L"the power cord comes out");
  state.onMains = 0;
  Check(Controller::NotifyPowerSetting(kAcDcPowerSource, kOnBattery) && Asked(L"DEVS 0x00050032 = 116"),
        L"panel at its level for battery, 116");
  Happens(L"battery saver comes on");
  state.batterySaver = 1;
  Check(Controller::NotifyPowerSetting(kPowerSavingStatus, 1) && Asked(L"DEVS 0x00050032 = 58"),
        L"panel dimmed to level 58");
  Happens(L"the user makes the panel bright all the same: BLSET 80");
  laptop.firmware.Set(kBacklight, 204);
  const auto onMains = Setting("Backlight");
  Check(StandInUi::Send(L"BLSET", {.handle = 80}) && UiIsTold(L"POPBATTERYMESSAGE"), L"UI told to warn the user");
  Check(IsStored("BacklightDC", "204") && IsStored("Backlight", onMains), L"level 204 stored for battery");
  Picture(L"2-battery-saver");
  Happens(L"the user forbids saving in the UI: POWERSAVEROFF");
  Check(StandInUi::Send(L"POWERSAVEROFF") && Asked(L"DEVS 0x00050032 = 204"), L"panel at that level");
  Check(IsStored("PowerSaving", "0"), L"settings remember it");
  Happens(L"the user allows it again: POWERSAVERON");
  Check(StandInUi::Send(L"POWERSAVERON") && Asked(L"DEVS 0x00050032 = 58"), L"panel dimmed again");
  Happens(L"the power cord goes in again, battery saver goes off");
  state.onMains = 1;
  state.batterySaver = 0;
  Check(Controller::NotifyPowerSetting(kAcDcPowerSource, kOnMains) && Asked(ToLevelOnMains()),
        L"panel back at the level stored for mains");
}

/// A finger's report at one step of its way: report id, tip switch, contact id, X and Y of 0 to 4095, contact count.
TouchBytes FingerAt(std::uint8_t reportId, bool isDown, int step) {
  const auto x = static_cast<std::uint16_t>(300 + 110 * step), y = static_cast<std::uint16_t>(3300 - 8 * step * step);
  const auto low = [](std::uint16_t word) { return static_cast<std::uint8_t>(word & 0xFF); };
  const auto high = [](std::uint16_t word) { return static_cast<std::uint8_t>(word >> 8); };
  return {reportId, static_cast<std::uint8_t>(isDown ? 1 : 0), 0, low(x), high(x), low(y), high(y), 1};
}

TEST_F(Day, TheUiGetsEveryThirdTouchReportAndTheLift) {
  constexpr std::uint8_t kPadReport = 1, kScreenReport = 4;
  constexpr int kMoves = 16;
  Chapter(L"A finger moves over the C panel");
  Happens(L"sixteen reports of a finger, and one of its lift");
  std::vector<std::wstring> expected;
  bool reported = true;
  const auto report = [&](TouchDevice from, const TouchBytes& bytes, bool isForwarded) {
    if (isForwarded) expected.push_back(L"received touch " + HexText(bytes));
    reported = reported && laptop.touch.Report(from, bytes);
  };
  for (int step = 0; step < kMoves; step++) report(kTouchPad, FingerAt(kPadReport, true, step), step % 3 == 0);
  report(kTouchPad, FingerAt(kPadReport, false, kMoves), true);
  Check(reported && laptop.uiTalk.WaitFor(expected.back()), L"the UI gets the lift");
  Check(UiTalk() == expected, L"and every third report before it, byte for byte");
  Picture(L"3-touched");
  Happens(L"four reports of the touch screen");
  expected.clear();
  for (int step = 0; step < 4; step++) report(kTouchScreen, FingerAt(kScreenReport, true, step), step % 3 == 0);
  Check(reported && laptop.uiTalk.WaitFor(expected.back()) && UiTalk() == expected, L"the UI gets first and last");
}

}  // namespace

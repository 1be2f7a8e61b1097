// The laptop boots, the controller starts and brings up the UI.
#include "day/chapters.h"
#include "kit/desktop.h"
#include "kit/machine.h"

namespace lab {

bool BootLaptop(Day& day) {
  day.Chapter(L"The laptop boots");
  if (!day.Check(day.laptop().Boot(), L"firmware driver, touch controller and activation answer")) return false;
  day.Check(OpenDesktop(), L"a user's desktop is in the foreground");
  day.Check(Monitors() == std::vector<std::wstring>{L"1920x1080 at (0,0)", L"1920x515 at (0,1080)"},
            L"two panels: B 1920x1080, C 1920x515 below it");
  day.Check(Setting("Tessaview").empty(), L"no settings file yet");
  return true;
}

bool StartController(Day& day) {
  Laptop& laptop = day.laptop();
  day.Chapter(L"The controller starts");
  day.Happens(L"the UI's package is not installed yet");
  Day::State().packageCheck = kPackageMissing;
  if (!day.Check(laptop.controller.Start(), L"TessaviewService.exe runs")) return false;
  if (!day.Check(day.Traced(L" No Found Package"), L"the package check, run as the user, finds nothing")) return false;
  day.Happens(L"half a second goes by");
  day.Check(day.Traced(L" No Found Package") && day.UiTalk().empty(), L"it looks again, and launches no UI meanwhile");
  day.Happens(L"the UI's package is installed");
  Day::State().packageCheck = kPackageInstalled;
  day.Check(day.Traced(L" Found Package"), L"it is found when it is looked for again");
  day.Check(day.UiHeard(L"activated 7C31A0D4.TessaviewMaster_*"), L"UI activated by its application id");
  if (!day.Check(laptop.WaitForController(), L"the controller serves its window")) return false;
  if (!day.Check(StandInUi::IsThere(), L"UI has its window")) return false;

  // What the controller had done on the way, from its first line on.
  day.Check(laptop.trace.WaitFor(L"[InitialDisplay] Global gBPanel X: 0, Y: 0, Wdith: 1920, Height: 1080") &&
                laptop.trace.WaitFor(L"[InitialDisplay] Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515"),
            L"B and C panel found where they are");
  day.Check(laptop.trace.WaitFor(L"Find TouchPad Vid & Pid Success!") &&
                laptop.trace.WaitFor(L"Get Rawinput hDevice of CPanel_TouchScreen successed"),
            L"touch pad and touch screen found");
  day.Check(laptop.requests.WaitFor(L"DEVS 0x00050032 = 116"), L"panel powered on at its default level");
  day.Check(Day::SettingsAre({"On", "116", "116", "1", "Cursor"}), L"settings file made with its defaults");
  day.Check(laptop.patched.WaitFor(L"user of session 1"), L"programs started for the user at the console");
  day.Check(laptop.trace.WaitFor(L"The computer is powered by an AC power source."),
            L"Windows tells that it is on mains");
  day.Picture(L"1-ui-launched");
  return true;
}

/// What the hot-key component tells a controller that has just started.
void TellTheState(Day& day) {
  day.Chapter(L"The controller hears what it was started into");
  day.Happens(L"the touch pad is enabled");
  Controller::PostTouchPadStatus(true);
  day.Check(day.UiHeard(L"received GETTOUCHPAD"), L"UI told GETTOUCHPAD");
}

}  // namespace lab

// What goes wrong or ends: the driver, the panel, a second controller, the day.
#include "day/chapters.h"

namespace lab {

void DriverGone(Day& day) {
  FirmwareDriver& firmware = day.laptop().firmware;
  day.Chapter(L"The firmware driver goes and comes back");
  day.Happens(L"the driver is stopped");
  day.Check(firmware.Stop() && Eventually([&] { return !firmware.Set(kBacklight, 1); }), L"its device does not open");
  day.Check(StandInUi::Send(L"BLGET") && day.UiHeard(L"received BLSET 99"),
            L"BLGET answered all the same, as for the brightest level");
  day.Happens(L"folded over and back, which nobody can ask the firmware about");
  Controller::PostHotKey(HotKey::FlipChanged);
  const bool servesOn = day.laptop().WaitForController() && StandInUi::Send(L"BLGET");
  day.Check(servesOn && day.UiHeard(L"received BLSET 99") &&
                day.UiTalk() == std::vector<std::wstring>{L"sent BLGET", L"received BLSET 99"},
            L"the UI is told nothing of it, and its next BLGET is answered");
  day.Happens(L"the driver is started, with the registers that it had when it was new");
  day.Check(firmware.Start(), L"its device answers");
  day.Check(StandInUi::Send(L"BLGET") && day.UiHeard(L"received BLSET 45"), L"BLGET answered with 45 percent again");
}

void SwitchOff(Day& day) {
  day.Chapter(L"F6: the C panel off");
  day.Happens(L"F6 is pressed once");
  Controller::PressF6(1, kF6PanelOff);
  day.Check(day.Asked(L"DEVS 0x00050031 = 0") && day.laptop().firmware.Read(kPanelPower) == kPanelOff,
            L"firmware told to power the panel off, and it is");
  day.Check(day.PadGot(kCursorReport), L"touch surface switched to a touch pad");
  day.Check(day.UiHeard(L"received POWEROFF"), L"UI told POWEROFF");
  day.Check(Day::SettingsAre({"Off", "127", "204", "1", "Cursor"}), L"settings remember Off");
  day.Picture(L"11-panel-off");
  day.Happens(L"folded over and back");
  Controller::PostHotKey(HotKey::FlipChanged);
  day.Check(day.Traced(L"Read ini file = Tessaview Power Off") && day.Asked(L"DEVS 0x00050031 = 0"),
            L"the panel stays off, as the user chose");
  day.Happens(L"F6 is pressed twice");
  Controller::PressF6(2, kF6PanelOn);
  day.Check(day.Traced(L"----- F6 start as TOUCHPAD and switch time = 2 -----") && day.Used(L"TESSAVIEW_F6_TESSAVIEW"),
            L"understood as the wish for the panel");
  day.Check(day.Asked(L"DEVS 0x00050032 = 127") && day.UiHeard(L"received CLOSEMASK"),
            L"panel on at its level for mains, UI told CLOSEMASK");
  day.Check(Day::SettingsAre({"On", "127", "204", "1", "Cursor"}), L"settings remember On");
  day.Picture(L"12-panel-back-on");
}

void SecondInstance(Day& day) {
  day.Chapter(L"A second controller is started");
  day.Happens(L"TessaviewService.exe once more");
  Controller second;
  const bool started = second.Start();
  day.Check(started && second.WaitForExit() == 0U, L"it leaves at once, with 0");
  day.Check(day.laptop().controller.IsRunning(), L"the first one runs on");
}

void ShutDown(Day& day) {
  day.Chapter(L"The user signs out, the controller ends");
  day.Happens(L"Windows asks whether the session may end, and ends it");
  day.Check(Deliver(Controller::Window(), WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)) &&
                day.PadGot(kCursorReport),
            L"touch surface left as a touch pad, for who signs in next");
  day.Check(Deliver(Controller::Window(), WM_ENDSESSION, TRUE, static_cast<LPARAM>(ENDSESSION_LOGOFF)),
            L"the controller has nothing else to do");
  day.Happens(L"its menu's Exit");
  Controller::Exit();
  day.Check(day.laptop().controller.WaitForExit() == 0U, L"it ends by itself, with 0");
  day.laptop().ui.End();
}

}  // namespace lab

// The day's evening: what keeps the UI on the panel, what it is told of the user's session, and the end.
#include <algorithm>

#include "kit/system_events.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

TEST_F(Day, AUiThatEndsIsLaunchedAgain) {
  Chapter(L"The UI's process ends");
  Happens(L"the UI says that it is ready");
  Check(StandInUi::Send(L"ALIVE") && Traced(L"AppActivationMgr->ActivateApplication Sucessed"),
        L"the packaged UI is activated");
  Happens(L"the UI is killed");
  laptop.KillUi();
  Check(Traced(L" ******* NorvTessaview.exe process be killed *******"), L"Windows tells of it");
  Note(L"five minutes for it to come back by itself, less than a second in the lab");
  Check(UiIsLaunched() && Used(L"UI_EXIST_WITH_CHECKING_TIMES_*") && StandInUi::IsThere(),
        L"launched again, and back within three rounds");
}

TEST_F(Day, ANewPackageBringsTheUiUp) {
  Chapter(L"The UI's package is installed anew");
  Happens(L"the UI is taken away, and a package comes");
  laptop.ui.End();
  Check(ListPackage(L"7C31A0D4.TessaviewMaster_1.0.1.0_x64__h2kq9vx81tmwe") &&
            Traced(L"[PackageWatch] The installed packages changed"),
        L"the change is seen in the registry");
  Check(UiIsLaunched() && Eventually([] { return StandInUi::IsThere(); }), L"the UI is launched");
}

TEST_F(Day, TheUiIsToldOfTheSecureDesktopOnceEachTime) {
  Chapter(L"A program asks for an administrator's rights");
  for (const bool isSecure : {true, false}) {
    const std::wstring text = isSecure ? L"UACENTRY" : L"UACEXIT";
    Happens(isSecure ? L"the secure desktop takes the screen" : L"the user answers");
    SwitchToSecureDesktop(isSecure);
    Check(UiIsTold(text), L"UI told " + text);
    SwitchToSecureDesktop(isSecure);
    const bool servesOn = SendCommand(L"BLGET") && UiIsTold(L"BLSET*");
    const auto talk = UiTalk();
    Check(servesOn && std::count(talk.begin(), talk.end(), L"received " + text) == 1, L"and told once");
  }
}

TEST_F(Day, BackFromHibernationTheTouchDevicesAreResetAndTheUiTold) {
  Chapter(L"The laptop comes back from hibernation");
  for (const auto* again : {L"", L" again"}) {
    Happens(std::wstring(L"the kernel writes it to the log") + again);
    Happen(SystemEvent::Resumed);
    Check(UiIsTold(L"IAMBACK"), L"UI told IAMBACK");
    Check(Traced(L"Enable Device Success") && Patched(L"disable HID\\VEN_GDX&DEV_1515&Col06") &&
              Patched(L"enable HID\\VEN_GDX&DEV_1515&Col06"),
          L"the touch screen is reset");
    Check(Traced(L"[Update_UI_Status] ------- End -------"), L"and the saved power applied again");
  }
}

TEST_F(Day, ASecondInstanceLeavesAtOnceAndTouchesNothing) {
  Chapter(L"A second controller is started");
  Happens(L"TessaviewService.exe once more");
  Controller second;
  const bool started = second.Start();
  Check(started && second.WaitForExit() == 0U, L"it leaves at once, with 0");
  Check(laptop.controller.IsRunning() && StandInUi::Send(L"BLGET") && UiIsTold(L"BLSET*"), L"the first one runs on");
  Check(Demands().empty(), L"and the firmware was told nothing");
}

TEST_F(Day, TheControllerEndsAsAskedAndLeavesAPlainTouchPad) {
  const auto signsOut = static_cast<LPARAM>(ENDSESSION_LOGOFF);
  Chapter(L"The user signs out, the controller ends");
  Happens(L"Windows asks whether the session may end, and ends it");
  Check(Deliver(Controller::Window(), WM_QUERYENDSESSION, 0, signsOut) && PadGot(kCursorReport),
        L"touch surface left as a touch pad, for who signs in next");
  Check(Deliver(Controller::Window(), WM_ENDSESSION, TRUE, signsOut), L"the controller has nothing else to do");
  Happens(L"its menu's Exit");
  Controller::Exit();
  Check(laptop.controller.WaitForExit() == 0U && Controller::Window() == nullptr, L"it ends by itself, with 0");
  Check(StandInUi::IsThere(), L"and the UI, a program of its own, goes on");
  laptop.ui.End();
}

}  // namespace

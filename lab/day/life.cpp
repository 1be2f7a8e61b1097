// What keeps the UI on the panel, and what it is told of the user's session.
#include "day/chapters.h"
#include "kit/machine.h"
#include "kit/system_events.h"

namespace lab {

void UiEnds(Day& day) {
  day.Chapter(L"The UI's process ends");
  day.Happens(L"the UI says that it is ready");
  day.Check(StandInUi::Send(L"ALIVE") && day.Traced(L"AppActivationMgr->ActivateApplication Sucessed"),
            L"the packaged UI is activated");
  day.Happens(L"the UI is killed");
  day.laptop().KillUi();
  day.Check(day.Traced(L" ******* NorvTessaview.exe process be killed *******"), L"Windows tells of it");
  day.Note(L"five minutes for it to come back by itself, a hundredth of that in the lab");
  day.Check(day.UiHeard(L"activated *") && day.Used(L"UI_EXIST_WITH_CHECKING_TIMES_*") && StandInUi::IsThere(),
            L"launched again, and back within three rounds");
}

void PackageInstalled(Day& day) {
  day.Chapter(L"The UI's package is installed anew");
  day.Happens(L"the UI is taken away, and a package comes");
  day.laptop().ui.End();
  day.Check(ListPackage(L"7C31A0D4.TessaviewMaster_1.0.1.0_x64__h2kq9vx81tmwe") &&
                day.Traced(L"[PackageWatch] The installed packages changed"),
            L"the change is seen in the registry");
  day.Check(day.UiHeard(L"activated *") && Eventually([] { return StandInUi::IsThere(); }), L"the UI is launched");
}

void SecureDesktop(Day& day) {
  day.Chapter(L"A program asks for an administrator's rights");
  day.Happens(L"the secure desktop takes the screen");
  SwitchToSecureDesktop(true);
  day.Check(day.UiHeard(L"received UACENTRY"), L"UI told UACENTRY");
  day.Happens(L"the user answers");
  SwitchToSecureDesktop(false);
  day.Check(day.UiHeard(L"received UACEXIT"), L"UI told UACEXIT");
}

void Hibernation(Day& day) {
  day.Chapter(L"The laptop comes back from hibernation");
  day.Happens(L"the kernel writes it to the log");
  Happen(SystemEvent::Resumed);
  day.Check(day.UiHeard(L"received IAMBACK"), L"UI told IAMBACK");
  day.Check(day.Traced(L"Dissable Device Success") && day.Traced(L"Enable Device Success"),
            L"the touch devices had been reset before");
}

}  // namespace lab

// The panels stay where they belong, and the lid.
#include "day/chapters.h"
#include "kit/machine.h"

namespace lab {
namespace {

bool IsInPlace() {
  return Monitors() == std::vector<std::wstring>{L"1920x1080 at (0,0)", L"1920x515 at (0,1080)"};
}

}  // namespace

void PanelMoved(Day& day) {
  day.Chapter(L"Another program moves and turns the C panel");
  day.Note(L"the UI is busy for a while, and the controller waits for it: otherwise there would be nothing to see");
  day.Happens(L"the C panel is moved beside the B panel");
  day.Check(StandInUi::Hang() && PlaceCPanel(1920, 0, kTurnedUpright) && Eventually([] { return !IsInPlace(); }),
            L"it is out of its place");
  day.Picture(L"9-panel-moved-away");
  StandInUi::Wake();
  day.Check(day.Traced(L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = 1") && Eventually(IsInPlace),
            L"put back below the B panel");
  day.Picture(L"10-panel-put-back");
  day.Happens(L"the C panel is turned upside down");
  day.Check(PlaceCPanel(0, 1080, kTurnedOver) &&
                day.Traced(L"[CheckCPanel_Position_Orientation] isWrongPosition = 0, isWrongOrientation = 1") &&
                day.Traced(L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = 1"),
            L"turned back");
  day.Check(day.laptop().WaitForController() && IsInPlace(), L"and everything is at rest");
}

void Lid(Day& day) {
  constexpr std::uint32_t kClosed = 0, kOpened = 1, kDoNothing = 0;
  day.Chapter(L"The lid");
  day.Happens(L"the user wants that closing the lid does nothing");
  day.Check(Controller::NotifyPowerSetting(kLidCloseAction, kDoNothing) && day.Asked(L"DEVS 0x00050035 = 0"),
            L"firmware told to leave the panel alone");
  day.Happens(L"the lid is closed");
  day.Check(Controller::NotifyPowerSetting(kLidSwitchState, kClosed) && day.UiHeard(L"received POWEROFF") &&
                day.UiHeard(L"received OPENMASK"),
            L"UI told POWEROFF, and OPENMASK because the machine goes on");
  day.Happens(L"the lid is opened");
  day.Check(Controller::NotifyPowerSetting(kLidSwitchState, kOpened) && day.UiHeard(L"received POWERON") &&
                day.UiHeard(L"received CLOSEMASK"),
            L"UI told POWERON and CLOSEMASK");
}

}  // namespace lab

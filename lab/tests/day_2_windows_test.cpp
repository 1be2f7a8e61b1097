// The day's applications: one goes from panel to panel.
#include <sstream>

#include "kit/app_window.h"
#include "kit/pointer.h"
#include "kit/throw.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Words = std::vector<std::wstring>;

/// The UI tells of a touch in the middle of a window.
bool IsTouched(const AppWindow& window) {
  const auto [left, top, right, bottom] = window.Area();
  return StandInUi::Send(L"TOUCH", {.point = {(left + right) / 2, (top + bottom) / 2}});
}

/// How the UI is told which arrow to offer for a window, and where that is.
std::wstring Arrow(const wchar_t* text, const AppWindow& window) {
  const auto [left, top, right, bottom] = window.Area();
  std::wstringstream line;
  line << text << L" " << static_cast<std::int32_t>(window.number()) << L" [" << left << L", " << top << L", " << right
       << L", " << bottom << L"]";
  return line.str();
}

TEST_F(Day, AnApplicationIsThrownFromPanelToPanelAndGoesWithTheArrows) {
  Chapter(L"An application is thrown from panel to panel");
  Happens(L"the UI says that it is ready, and an application is opened on the B panel");
  Check(StandInUi::Send(L"ALIVE") && UiIsLaunched(), L"the UI is launched, to be sure that it is in front");
  const AppWindow notes(AppOptions{.title = L"Notes", .area = {1000, 200, 1800, 700}});

  Happens(L"it is dragged by its title bar");
  Check(BeginThrow(laptop, notes, kThrowDown) && UiWords(L"WSHOVER", 1) == Words{L"WSNORMAL", L"WSNORMAL", L"WSHOVER"},
        L"the UI is told to show the overlay, and that its area \"down\" is hovered");
  Picture(L"4-window-dragged");
  Happens(L"it is dropped there");
  Check(Pointer::Drop(notes) && UiWords(L"WSPRESS", 2) == Words{L"WSPRESS", L"WSENTER", L"WSPRESS"},
        L"the UI is told that it is thrown");
  Check(notes.Fills(Panel::C), L"it fills the C panel");
  Check(Used(L"DRAGMOVE_WINDOWMOVER_DOWN_lab-app"), L"the use is recorded");
  Picture(L"5-window-thrown-down");

  Happens(L"it is thrown back");
  Check(BeginThrow(laptop, notes, kThrowUp) && Pointer::Drop(notes) && notes.Fills(Panel::B), L"it fills the B panel");
  Check(UiWords(L"WSPRESS", 2) ==
            Words{L"WSWINUPNORMAL", L"WSWINUPNORMAL", L"WSWINUPHOVER", L"WSPRESS", L"WSENTER", L"WSPRESS"},
        L"the UI is told of it, step by step");
  Check(Used(L"DRAGMOVE_WINDOWMOVER_UP_lab-app"), L"the use is recorded");
  Picture(L"6-window-thrown-up");

  Happens(L"it is touched");
  Check(IsTouched(notes) && UiIsTold(Arrow(L"DOWN", notes)), L"the UI is told to offer the arrow down");
  Happens(L"the user touches the arrow");
  Check(StandInUi::Send(L"DOWN") && notes.Fills(Panel::C), L"it is on the C panel again");
  Happens(L"it is touched there");
  Check(IsTouched(notes) && UiIsTold(Arrow(L"UP", notes)), L"the UI is told to offer the arrow up");
  Happens(L"the user touches the arrow");
  Check(StandInUi::Send(L"UP") && notes.Fills(Panel::B), L"it is on the B panel again");
  Happens(L"it is hidden, and the UI itself is touched");
  notes.Show(SW_HIDE);
  Check(StandInUi::Send(L"TOUCH", {.point = {300, 1300}}) && UiIsTold(L"FORBID"), L"the UI is told to offer no arrow");
}

}  // namespace

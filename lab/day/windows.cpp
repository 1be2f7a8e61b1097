// An application goes from panel to panel.
#include <string>

#include "day/chapters.h"
#include "kit/app_window.h"
#include "kit/pointer.h"
#include "kit/throw.h"

namespace lab {
namespace {

bool Fills(const AppWindow& window, Panel panel) {
  return Eventually([&] { return window.State() == ShowState::Maximized && window.Panel() == panel; });
}

/// How the UI hears of a window that was touched.
std::wstring Arrow(const wchar_t* text, const AppWindow& window) {
  return L"received " + std::wstring(text) + L" " + std::to_wstring(static_cast<std::int32_t>(window.number())) + L"*";
}

}  // namespace

void Windows(Day& day) {
  day.Chapter(L"An application is thrown from panel to panel");
  day.Happens(L"the UI says that it is ready, and an application is opened on the B panel");
  day.Check(StandInUi::Send(L"ALIVE") && day.UiHeard(L"activated *"),
            L"the UI is launched, to be sure that it is in front");
  const AppWindow notes(AppOptions{.title = L"Notes", .area = {1000, 200, 1800, 700}});

  day.Happens(L"it is dragged by its title bar");
  day.Check(BeginThrow(day.laptop(), notes, kThrowDown) && day.UiHeard(L"received WSHOVER*"),
            L"the UI is told to show the overlay, and that its area \"down\" is hovered");
  day.Picture(L"4-window-dragged");
  day.Happens(L"it is dropped there");
  day.Check(Pointer::Drop(notes) && day.UiHeard(L"received WSENTER*"), L"the UI is told that it is thrown");
  day.Check(Fills(notes, Panel::C), L"it fills the C panel");
  day.Check(day.Used(L"DRAGMOVE_WINDOWMOVER_DOWN_lab-app"), L"the use is recorded");
  day.Picture(L"5-window-thrown-down");

  day.Happens(L"it is thrown back");
  day.Check(BeginThrow(day.laptop(), notes, kThrowUp) && Pointer::Drop(notes) && Fills(notes, Panel::B),
            L"it fills the B panel");
  day.Picture(L"6-window-thrown-up");

  day.Happens(L"it is touched");
  const auto [left, top, right, bottom] = notes.Area();
  day.Check(StandInUi::Send(L"TOUCH", UiValues{.point = {(left + right) / 2, (top + bottom) / 2}}) &&
                day.UiHeard(Arrow(L"DOWN", notes)),
            L"the UI is told to offer the arrow down");
  day.Happens(L"the user touches the arrow");
  day.Check(StandInUi::Send(L"DOWN") && Fills(notes, Panel::C), L"it is on the C panel again");
}

}  // namespace lab

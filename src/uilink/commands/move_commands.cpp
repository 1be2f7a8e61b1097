// The UI's commands that move a window to the other panel, or to a place the UI chose.
#include <string>

#include "appid/window_program.h"
#include "core/trace_log.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/window_control.h"
#include "uilink/channel/ui_session.h"
#include "uilink/commands/command.h"
#include "windows/c_panel_apps.h"
#include "windows/panel_moves.h"
#include "windows/patient_calls.h"
#include "windows/rect_moves.h"
#include "windows/target_window.h"

namespace tessaview {
namespace {

void RecordUse(const wchar_t* what, os::WindowHandle window) {
  RecordUsage(what + ApplicationLabel(window));
}

bool IsByDrag(const UiMessage& message) {
  return message.point.x == 0;
}

void TakeTouchedWindow(const UiMessage& message) {
  UpdateTargetWindow(message.point);
}

void MoveTargetUp(const UiMessage& /*message*/) {
  NoteUpCommand(os::NowMs());
  MoveWindowtoBPanel(PreviousForegroundWindow(), false);
}

void MoveTargetDown(const UiMessage& /*message*/) {
  NoteDownCommand(os::NowMs());
  MoveWindowtoCPanel(PreviousForegroundWindow(), Pause::Short);
}

void MoveViewUp(const UiMessage& message) {
  MoveWindowtoBPanel(message.Window(), false);
}

void RecallView(const UiMessage& message) {
  if (!os::IsWindowVisible(message.Window())) Show(message.Window(), os::ShowCommand::Show);
  MoveWindowtoCPanel(message.Window(), Pause::Short);
}

void MoveTopAppUp(const UiMessage& /*message*/) {
  const auto window = TopAppOnCPanel();
  if (window == os::WindowHandle::None) return;
  MoveWindowtoBPanel(window, true);
  RecordUse(L"NAVIGATION_WINDOWMOVER_UP_", window);
}

void MoveLaunchedDown(const UiMessage& message) {
  MoveWindowtoCPanel(message.Window(), Pause::Short);
}

void MoveNavigatedUp(const UiMessage& message) {
  MoveWindowtoBPanel(message.Window(), false);
  if (IsByDrag(message)) {
    Log(L"[SYSTEM_APP_NAVIGATOR] Move exe to B panel by drag.");
    RecordUse(L"SYSTASKVIEW_DRAGMOVE_UP_", message.Window());
  } else {
    Log(L"[SYSTEM_APP_NAVIGATOR] Move exe to B panel by button.");
    RecordUse(L"SYSTASKVIEW_WINDOWMOVER_UP_", message.Window());
  }
}

void MoveNavigatedDown(const UiMessage& message) {
  MoveWindowtoCPanel(message.Window(), Pause::Short);
  if (IsByDrag(message)) {
    Log(L"[SYSTEM_APP_NAVIGATOR] Move exe to C panel by drag.");
    RecordUse(L"SYSTASKVIEW_DRAGMOVE_DOWN_", message.Window());
  } else {
    Log(L"[SYSTEM_APP_NAVIGATOR] Move exe to C panel by button.");
    RecordUse(L"SYSTASKVIEW_WINDOWMOVER_DOWN_", message.Window());
  }
}

void PlaceTaskGroupWindow(const UiMessage& message) {
  PlaceInBPanel(message.Window(), message.rect);
}

void PlaceTaskGroupWindowMaximized(const UiMessage& message) {
  MoveWindowByRect(message.Window(), PlaceOf(message.rect), true);
}

constexpr UiCommand kMoveCommands[] = {
    {L"TOUCH", Match::Exact, TakeTouchedWindow, nullptr,
     "point; makes the window there the target of the arrows; answers UP, DOWN or FORBID, nothing for a window on "
     "neither panel"},
    {L"UP", Match::Exact, MoveTargetUp, nullptr, "moves the target window to the B panel"},
    {L"DOWN", Match::Exact, MoveTargetDown, nullptr, "moves the target window to the C panel"},
    {L"VIEWWINUP", Match::Exact, MoveViewUp, nullptr, "handle: window; moves it to the B panel"},
    {L"VIEWRECALL", Match::Exact, RecallView, nullptr, "handle: window; shows it and moves it to the C panel"},
    {L"NAVWINUP", Match::Exact, MoveTopAppUp, nullptr, "moves the topmost application of the C panel to the B panel"},
    {L"LAUNCHMOVETOC", Match::Exact, MoveLaunchedDown, L"[LAUNCHMOVETOC] Move exe to C panel.",
     "handle: window; moves it to the C panel"},
    {L"SYSAPPNAVIGATORMOVEUP", Match::Exact, MoveNavigatedUp, nullptr,
     "handle: window; point x: 0 by drag, else by button; moves it to the B panel"},
    {L"SYSAPPNAVIGATORMOVEDOWN", Match::Exact, MoveNavigatedDown, nullptr,
     "handle: window; point x: 0 by drag, else by button; moves it to the C panel"},
    {L"TASKGROUPLAUNCHAPPS", Match::Exact, PlaceTaskGroupWindow, L"[TASKGROUPLAUNCHAPPS] Move exe to B panel.",
     "handle: window; rect; puts it there, inside the B panel at the right and at the bottom"},
    {L"TASKGROUPLAUNCHAPPSMAX", Match::Exact, PlaceTaskGroupWindowMaximized,
     L"[TASKGROUPLAUNCHAPPSMAX] Move exe to B panel and maximum.",
     "handle: window; rect; puts it there and maximises it"},
};

}  // namespace

UiCommandRows MoveCommands() {
  return kMoveCommands;
}

}  // namespace tessaview

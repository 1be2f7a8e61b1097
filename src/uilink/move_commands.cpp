#include "uilink/move_commands.h"

#include <string>

#include "core/trace_log.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/window_control.h"
#include "uilink/ui_state.h"
#include "windows/c_panel_apps.h"
#include "windows/panel_moves.h"
#include "windows/patient_calls.h"
#include "windows/rect_moves.h"
#include "windows/target_window.h"
#include "windows/window_program.h"

namespace tessaview {
namespace {

void RecordUse(const wchar_t* what, os::WindowHandle window) {
  RecordUsage(what + ApplicationLabel(window));
}

bool IsByDrag(const UiMessage& message) {
  return message.point.x == 0;
}

}  // namespace

void TakeTouchedWindow(const UiMessage& message) {
  UpdateTargetWindow(message.point);
}

void MoveTargetUp(const UiMessage& /*message*/) {
  gLastUpCommandTime.set(os::NowMs());
  MoveWindowtoBPanel(PreviousForegroundWindow.get(), false);
}

void MoveTargetDown(const UiMessage& /*message*/) {
  gLastDownCommandTime.set(os::NowMs());
  MoveWindowtoCPanel(PreviousForegroundWindow.get(), Pause::Short);
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
  Log(L"[LAUNCHMOVETOC] Move exe to C panel.");
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
  Log(L"[TASKGROUPLAUNCHAPPS] Move exe to B panel.");
  PlaceInBPanel(message.Window(), message.rect);
}

void PlaceTaskGroupWindowMaximized(const UiMessage& message) {
  Log(L"[TASKGROUPLAUNCHAPPSMAX] Move exe to B panel and maximum.");
  MoveWindowByRect(message.Window(), PlaceOf(message.rect), true);
}

}  // namespace tessaview

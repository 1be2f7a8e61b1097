#include "windows/drag_steps.h"

#include <algorithm>
#include <mutex>

#include "appid/microsoft_apps.h"
#include "core/process_wide.h"
#include "core/trace_log.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/input.h"
#include "os/threads.h"
#include "power/panel_status.h"
#include "uilink/ui_state.h"
#include "windows/thrown_window.h"
#include "windows/window_mover.h"
#include "windows/window_panel.h"
#include "windows/window_validity.h"

namespace tessaview {
namespace {

os::Lock gMoverLock;                    // held for one step and the queueing of what it says
ProcessWide<WindowMover> gWindowMover;  // guarded by that lock
ProcessWide<bool> gIsMoverArmed;

template <class Step>
void Take(Step step) {
  const std::lock_guard hold(gMoverLock);
  auto mover = gWindowMover.get();
  const MoverOutcome outcome = step(mover);
  gWindowMover.set(mover);
  gIsMoverArmed.set(mover.IsArmed());
  for (const auto& text : outcome.texts) PostUiText(text);
  if (outcome.thrown) MoveThrownWindow(*outcome.thrown);
}

std::uint64_t SinceLastCommand(std::uint64_t nowMs) {
  const auto last = std::max(gLastUpCommandTime.get(), gLastDownCommandTime.get());
  return nowMs > last ? nowMs - last : 0;
}

bool HasMinimizeBox(os::WindowHandle window) {
  if ((os::WindowStyle(window) & os::kWsMinimizeBox) != 0) return true;
  Log(L"[Window Mover] WindowMoverHandle on B panel, No MinimizeBox \n");  // in these words on both panels
  return false;
}

void Arm(MoverPanel panel, os::WindowHandle window) {
  const bool isMSHanlde = IsMSApp(window);  // before the pointer is tracked, which takes it as given
  Log(L"[Window Mover] isMSHanlde : %d \n", isMSHanlde);
  Take([&](WindowMover& mover) {
    if (!isActionMenuBlocked.get()) mover.Arm(panel, isMSHanlde);
    return MoverOutcome{};
  });
}

void Choose(os::WindowHandle window) {
  Log(L"[Window Mover] Window validity , To be WindowMoverHandle \n");
  Take([&](WindowMover& mover) {
    mover.Choose(window);
    return MoverOutcome{};
  });
  const auto [left, top, right, bottom] = os::WindowRect(window);
  Log(L"[Window Mover] WindowMoverRect ( %d, %d, %d, %d ) \n", left, top, right, bottom);
}

}  // namespace

bool IsMoverArmed() {
  return gIsMoverArmed.get();
}

void OnLeftButtonDown() {
  Press press{.gPressPoint = os::CursorPosition(), .gPressTime = os::NowMs()};
  press.gPressWindowRect = os::WindowRect(os::RootWindow(os::WindowAt(press.gPressPoint)));
  Take([&](WindowMover& mover) {
    mover.Pressed(press);
    return MoverOutcome{};
  });
}

void OnLeftButtonUp() {
  const auto now = os::NowMs();
  const Release release{.cursor = os::CursorPosition(), .timeMs = now, .sinceCommandMs = SinceLastCommand(now)};
  Take([&](WindowMover& mover) { return mover.Released(release); });
}

void TrackDraggedWindow() {
  const auto cursor = os::CursorPosition();
  Take([&](WindowMover& mover) {
    if (!mover.IsArmed()) return MoverOutcome{};  // the drag ended just now
    return mover.PointerMoved(cursor, os::WindowRect(mover.WindowMoverHandle()));
  });
}

void OnMoveSizeStart(os::WindowHandle window) {
  Log(L"[Window Mover] EVENT_SYSTEM_MOVESIZESTART \n");
  if (isActionMenuBlocked.get()) return;
  Log(L"[Window Mover] Window Handle is : 0X%X \n", window);
  if (!IsValidWindow(window, os::WindowHandle::None).isValid) return Log(L"[Window Mover] Window not validity \n");
  Choose(window);

  const bool isOnBPanel = IsOnBPanel(window), isAlive = isTessaviewAlive.get(), isOn = isTessaviewPowerOn.get();
  if (isOnBPanel && isOn && isAlive) {
    if (!HasMinimizeBox(window)) return;
    Log(L"[Window Mover] WindowMoverHandle on B panel \n");
    Arm(MoverPanel::B, window);
  } else if (IsOnCPanel(window) && isAlive) {
    if (!HasMinimizeBox(window)) return;
    Log(L"[Window Mover] WindowMoverHandle on C panel \n");
    Arm(MoverPanel::C, window);
  } else {
    Log(L"[Window Mover] Is on B panel = %d, isTessaviewPowerOn = %d, isTessaviewAlive = %d \n", isOnBPanel, isOn,
        isAlive);
  }
}

void DisarmMover() {
  Take([](WindowMover& mover) { return mover.Disarm(); });
}

void OnMoveSizeEnd() {
  if (isActionMenuBlocked.get()) return;
  Take([](WindowMover& mover) { return mover.DragEnded(); });
  Log(L"[Window Mover] EVENT_SYSTEM_MOVESIZEEND \n");
}

}  // namespace tessaview

#include "windows/mover/drag_watch.h"

#include <memory>
#include <optional>
#include <utility>

#include "appid/microsoft_apps.h"
#include "core/input_hooks.h"
#include "core/log_failure.h"
#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "display/panel_search.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/input.h"
#include "os/kernel_objects.h"
#include "power/panel_status.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/channel/ui_session.h"
#include "windows/mover/navigator_edge.h"
#include "windows/mover/thrown_window.h"
#include "windows/mover/window_mover.h"
#include "windows/window_panel.h"
#include "windows/window_validity.h"

namespace tessaview {
namespace {

Guarded<WindowMover> gWindowMover;
Shared<bool> gIsPressed;  // the left button, as far as the mouse's hook has heard

template <class Step>
void Take(Step step) {
  gWindowMover.Do([&](WindowMover& mover) {
    MoverOutcome outcome = step(mover);
    if (outcome.thrown) {
      const auto isTold = std::make_shared<os::Event>(os::NewEvent());
      outcome.texts.back().isTold = isTold;
      MoveThrownWindow(*outcome.thrown, isTold);
    }
    for (auto& text : outcome.texts) PostUiText(std::move(text));
  });
}

bool IsMoverArmed() {
  return gWindowMover.Do([](const WindowMover& mover) { return mover.IsArmed(); });
}

// ---- The mouse ----

void NotePress() {
  Press press{.gPressPoint = os::CursorPosition(), .gPressTime = os::NowMs()};
  press.gPressWindowRect = os::WindowRect(os::RootWindow(os::WindowAt(press.gPressPoint)));
  Take([&](WindowMover& mover) {
    mover.Pressed(press);
    return MoverOutcome{};
  });
}

void OnLeftButtonUp() {
  const auto now = os::NowMs();
  const Release release{.cursor = os::CursorPosition(), .timeMs = now, .sinceCommandMs = SinceLastMoveCommand(now)};
  Take([&](WindowMover& mover) { return mover.Released(release); });
}

bool IsButtonDown() {
  return os::IsKeyDown(os::kButtonLeft) || os::IsKeyDown(os::kButtonRight);
}

void TrackDraggedWindow() {
  // The release was not heard, and a window that goes while it is dragged leaves nothing else to tell of the end.
  if (gIsPressed.get() && !IsButtonDown()) {
    gIsPressed.set(false);
    return DisarmMover();
  }
  const auto cursor = os::CursorPosition();
  Take([&](WindowMover& mover) {
    if (!mover.IsArmed()) return MoverOutcome{};  // the drag ended just now
    return mover.PointerMoved({.cursor = cursor,
                               .window = os::WindowRect(mover.WindowMoverHandle()),
                               .panel = mover.Panel() == MoverPanel::B ? FoundBPanel() : FoundCPanel(),
                               .isNewerUI = gUIVersionReported()});
  });
}

// ---- May this drag be thrown? ----

bool CanUiShowOverlay() {
  return os::FindTopWindow(kUiMainClass) != os::WindowHandle::None &&
         os::FindTopWindow(kUiGuideClass) == os::WindowHandle::None && isTessaviewPowerOn();
}

bool HasMinimizeBox(os::WindowHandle window) {
  if ((os::WindowStyle(window) & os::kWsMinimizeBox) != 0) return true;
  Log(L"[Window Mover] WindowMoverHandle on B panel, No MinimizeBox \n");  // in these words on both panels
  return false;
}

/// The panel that a window can be thrown from; nothing when it lies on neither, or may not be thrown.
std::optional<MoverPanel> PanelToThrowFrom(os::WindowHandle window) {
  const bool isOnBPanel = IsOnBPanel(window), isAlive = isTessaviewAlive(), isOn = isTessaviewPowerOn();
  if (isOnBPanel && isOn && isAlive) {
    if (!HasMinimizeBox(window)) return std::nullopt;
    Log(L"[Window Mover] WindowMoverHandle on B panel \n");
    return MoverPanel::B;
  }
  if (IsOnCPanel(window) && isAlive) {
    if (!HasMinimizeBox(window)) return std::nullopt;
    Log(L"[Window Mover] WindowMoverHandle on C panel \n");
    return MoverPanel::C;
  }
  Log(L"[Window Mover] Is on B panel = %d, isTessaviewPowerOn = %d, isTessaviewAlive = %d \n", isOnBPanel, isOn,
      isAlive);
  return std::nullopt;
}

// ---- Drags ----

void Choose(os::WindowHandle window) {
  Log(L"[Window Mover] Window validity , To be WindowMoverHandle \n");
  Take([&](WindowMover& mover) { return mover.Choose(window); });
  const auto [left, top, right, bottom] = os::WindowRect(window);
  Log(L"[Window Mover] WindowMoverRect ( %d, %d, %d, %d ) \n", left, top, right, bottom);
}

void Arm(MoverPanel panel, os::WindowHandle window) {
  const bool isMSHanlde = IsMSApp(window);  // can take 100 ms, so before the step and not in it
  Log(L"[Window Mover] isMSHanlde : %d \n", isMSHanlde);
  Take([&](WindowMover& mover) {
    if (!isActionMenuBlocked()) mover.Arm(panel, isMSHanlde);
    return MoverOutcome{};
  });
}

void OnMoveSizeStart(os::WindowHandle window) {
  Log(L"[Window Mover] EVENT_SYSTEM_MOVESIZESTART \n");
  if (isActionMenuBlocked()) return;
  Log(L"[Window Mover] Window Handle is : 0X%X \n", window);
  if (!IsValidWindow(window, os::WindowHandle::None).isValid) return Log(L"[Window Mover] Window not validity \n");
  Choose(window);
  if (const auto panel = PanelToThrowFrom(window)) Arm(*panel, window);
}

void OnMoveSizeEnd() {
  if (isActionMenuBlocked()) return;
  Take([](WindowMover& mover) { return mover.DragEnded(); });
  Log(L"[Window Mover] EVENT_SYSTEM_MOVESIZEEND \n");
}

/// A drag that is made with the mouse begins and ends with what its hook was called for just before. Returns whether it
/// was not; then what it missed is noted.
bool HasHookMissedTheMouse(os::WindowEvent event) {
  const bool isPressed = IsButtonDown();
  const bool begins = isPressed && event == os::WindowEvent::MoveSizeStart;
  const bool isAsHeard = gIsPressed.exchange(isPressed) == isPressed;
  if (isAsHeard && !(begins && IsHookSilent(os::InputHook::Mouse))) return false;
  if (begins) NotePress();  // the pointer is still about where it was pressed
  return true;
}

void OnMoveSize(os::WindowEvent event, os::WindowHandle window) {
  const bool isMissed = !isActionMenuBlocked() && HasHookMissedTheMouse(event);
  if (event == os::WindowEvent::MoveSizeStart && CanUiShowOverlay()) OnMoveSizeStart(window);
  // A drag that armed the mover must end it, even if UI or panel have gone meanwhile.
  if (event == os::WindowEvent::MoveSizeEnd && (IsMoverArmed() || CanUiShowOverlay())) OnMoveSizeEnd();
  if (isMissed) ReviveHooks(os::InputHook::Mouse);
}

}  // namespace

void OnMouse(os::MouseEvent event, os::Point pointer) {
  if (isActionMenuBlocked()) return;
  switch (event) {
    case os::MouseEvent::Move:
      return IsMoverArmed() ? TrackDraggedWindow() : FollowToNavigatorEdge(pointer);
    case os::MouseEvent::LeftDown:
      gIsPressed.set(true);
      return NotePress();
    case os::MouseEvent::LeftUp:
      gIsPressed.set(false);
      return OnLeftButtonUp();
  }
}

void StartDragWatch() {
  StartThread(L"drag", [] {
    LogFailure(L"The drags of windows cannot be watched",
               os::WatchWindowEvents(
                   {{os::WindowEvent::MoveSizeStart, os::WindowEvent::MoveSizeEnd}},
                   [](os::WindowEvent event, os::WindowHandle window, std::int32_t) { OnMoveSize(event, window); }));
  });
}

void StartMouseWatch() {
  StartThread(L"mouse", [] {
    const auto onMouse = [](os::MouseEvent event, os::Point pointer) {
      NoteHookCalled(os::InputHook::Mouse);
      OnMouse(event, pointer);
    };
    LogFailure(L"The mouse cannot be watched", os::WatchMouse(onMouse));
  });
}

void DisarmMover() {
  Take([](WindowMover& mover) { return mover.Disarm(); });
}

}  // namespace tessaview

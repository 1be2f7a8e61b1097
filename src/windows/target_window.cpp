#include "windows/target_window.h"

#include <utility>

#include "core/state.h"
#include "core/trace_log.h"
#include "os/desktop.h"
#include "uilink/channel/ui_channel.h"
#include "windows/window_panel.h"
#include "windows/window_validity.h"

namespace tessaview {
namespace {

struct Target {
  os::WindowHandle gCurrentWindow = os::WindowHandle::None;  // the window under the last touch (its root)
  os::WindowHandle PreviousForegroundWindow = os::WindowHandle::None;
  bool isResendPending = false;  // a touch hit no movable window: the target's next touch takes it as the target anew
};

MainThreadOnly<Target> gTarget;

void LogStars() {
  Log(L" ******* ******* ******* ******* \n");
}

void TellAbout(const UiText& text, os::WindowHandle window) {
  TellUi(text, {.handle = static_cast<std::uint64_t>(window), .rect = os::WindowRect(window)});
}

/// Tells the UI which way a window can go; nothing about one that is on neither panel.
void TellArrow(os::WindowHandle window) {
  if (IsOnCPanel(window)) {
    Log(L"Send to B Panel. \n");
    LogStars();
    TellAbout(texts::kUp, window);
  } else if (IsOnBPanel(window)) {
    Log(L"Send to C Panel. \n");
    LogStars();
    TellAbout(texts::kDown, window);
  }
}

void Forbid() {
  LogStars();
  TellUi(texts::kForbid);
  gTarget->PreviousForegroundWindow = os::WindowHandle::None;
}

void TakeAsTarget(os::WindowHandle window) {
  Log(L"Foreground change \n");
  gTarget->PreviousForegroundWindow = window;
  TellArrow(window);
}

bool IsTargetVisible() {
  if (os::IsWindowVisible(gTarget->PreviousForegroundWindow)) return true;
  Log(L" PreviousForegroundWindow isn't WindowVisible  \n");
  return false;
}

void OnTargetTouchedAgain() {
  if (std::exchange(gTarget->isResendPending, false)) return TakeAsTarget(gTarget->gCurrentWindow);
  Log(L"Same Window And Don't Send Message \n");  // the UI is told all the same: its arrow may have gone
  if (!IsTargetVisible()) return Forbid();
  TellArrow(gTarget->PreviousForegroundWindow);
}

void OnValidWindow(const WindowValidity& validity) {
  Log(L" ******* Valide window ******* \n");
  if (validity.isSameAsPrevious) return OnTargetTouchedAgain();
  TakeAsTarget(gTarget->gCurrentWindow);
}

void OnInvalidWindow(const WindowValidity& validity) {
  Log(L" ******* Invalide window ******* \n");
  gTarget->isResendPending = true;
  if (!validity.isUIWindowHit) {
    Log(L"FORBID \n");
    return Forbid();
  }
  Log(L"UI pressed or Desktop pressed \n");
  if (!IsTargetVisible()) return Forbid();
  TellArrow(gTarget->PreviousForegroundWindow);  // whoever touches the UI still means the window used before
}

/// The windows of a program may own each other; the one that was touched is the one that moves.
os::WindowHandle RootAt(os::Point point) {
  const auto window = os::WindowAt(point);
  const auto root = os::RootWindow(window);
  if (root != os::RootOwner(window)) Log(L"WindowRoot is WS_POPUP, Choose to be ControlWindow  \n");
  return root;
}

}  // namespace

os::WindowHandle PreviousForegroundWindow() {
  return gTarget->PreviousForegroundWindow;
}

void UpdateTargetWindow(os::Point touch) {
  Log(L"Mouse click CursorPos = ( %d , %d ) \n", touch.x, touch.y);
  const auto window = RootAt(touch);
  gTarget->gCurrentWindow = window;
  const auto validity = IsValidWindow(window, gTarget->PreviousForegroundWindow);
  if (validity.isValid) {
    OnValidWindow(validity);
  } else {
    OnInvalidWindow(validity);
  }
}

}  // namespace tessaview

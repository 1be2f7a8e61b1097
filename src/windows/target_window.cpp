#include "windows/target_window.h"

#include "core/trace_log.h"
#include "os/desktop.h"
#include "uilink/ui_channel.h"
#include "windows/window_panel.h"
#include "windows/window_validity.h"

namespace tessaview {
namespace {

/// The target was taken from the user's eyes, or is about to be: the next touch on it announces it again.
ProcessWide<bool> isResendPending;

void LogStars() {
  Log(L" ******* ******* ******* ******* \n");
}

void TellAbout(const wchar_t* text, os::WindowHandle window) {
  SendUiText({.text = text, .handle = static_cast<std::uint64_t>(window), .rect = os::WindowRect(window)});
}

/// Tells the UI which way a window can go; nothing about one that is on neither panel.
void TellArrow(os::WindowHandle window) {
  if (IsOnCPanel(window)) {
    Log(L"Send to B Panel. \n");
    LogStars();
    TellAbout(L"UP", window);
  } else if (IsOnBPanel(window)) {
    Log(L"Send to C Panel. \n");
    LogStars();
    TellAbout(L"DOWN", window);
  }
}

void Forbid() {
  LogStars();
  SendUiText({.text = L"FORBID"});
  PreviousForegroundWindow.set(os::WindowHandle::None);
}

void TakeAsTarget(os::WindowHandle window) {
  Log(L"Foreground change \n");
  PreviousForegroundWindow.set(window);
  TellArrow(window);
}

bool IsTargetVisible() {
  if (os::IsWindowVisible(PreviousForegroundWindow.get())) return true;
  Log(L" PreviousForegroundWindow isn't WindowVisible  \n");
  return false;
}

void OnTargetTouchedAgain() {
  if (isResendPending.exchange(false)) return TakeAsTarget(gCurrentWindow.get());
  Log(L"Same Window And Don't Send Message \n");  // the UI is told all the same: its arrow may have gone
  if (!IsTargetVisible()) return Forbid();
  TellArrow(PreviousForegroundWindow.get());
}

void OnValidWindow(const WindowValidity& validity) {
  Log(L" ******* Valide window ******* \n");
  if (validity.isSameAsPrevious) return OnTargetTouchedAgain();
  TakeAsTarget(gCurrentWindow.get());
}

void OnInvalidWindow(const WindowValidity& validity) {
  Log(L" ******* Invalide window ******* \n");
  isResendPending.set(true);
  if (!validity.isUIWindowHit) {
    Log(L"FORBID \n");
    return Forbid();
  }
  Log(L"UI pressed or Desktop pressed \n");
  if (!IsTargetVisible()) return Forbid();
  TellArrow(PreviousForegroundWindow.get());  // whoever touches the UI still means the window used before
}

/// The windows of a program may own each other; the one that was touched is the one that moves.
os::WindowHandle RootAt(os::Point point) {
  const auto window = os::WindowAt(point);
  const auto root = os::RootWindow(window);
  if (root != os::RootOwner(window)) Log(L"WindowRoot is WS_POPUP, Choose to be ControlWindow  \n");
  return root;
}

}  // namespace

ProcessWide<os::WindowHandle> gCurrentWindow;
ProcessWide<os::WindowHandle> PreviousForegroundWindow;

void UpdateTargetWindow(os::Point touch) {
  Log(L"Mouse click CursorPos = ( %d , %d ) \n", touch.x, touch.y);
  const auto window = RootAt(touch);
  gCurrentWindow.set(window);
  const auto validity = IsValidWindow(window, PreviousForegroundWindow.get());
  if (validity.isValid) {
    OnValidWindow(validity);
  } else {
    OnInvalidWindow(validity);
  }
}

}  // namespace tessaview

#include "windows/no_activate.h"

#include <vector>

#include "core/state.h"
#include "os/desktop.h"
#include "os/window_control.h"
#include "windows/companion_apps.h"
#include "windows/patient_calls.h"
#include "windows/window_classes.h"
#include "windows/window_panel.h"

namespace tessaview {
namespace {

/// The windows that were given the style.
Shared<std::vector<os::WindowHandle>> NoActivateWindows;

/// The controller ends, and no window is to be given the style any more.
Shared<bool> gIsOver;

bool KeepsActivation(os::WindowHandle window) {
  return (os::WindowExtendedStyle(window) & os::kWsExNoActivate) != 0 || !IsOnCPanel(window) ||
         IsExcludedWindow(window);
}

void Remember(os::WindowHandle window) {
  NoActivateWindows.Update([window](auto& windows) { windows.push_back(window); });
}

void AddNoActivate(os::WindowHandle window) {
  if (Hangs(window)) return;
  Remember(window);  // before it has the style, so that whoever ends the mode takes it back
  if (!gIsOver.get()) os::SetWindowExtendedStyle(window, os::WindowExtendedStyle(window) | os::kWsExNoActivate);
}

void RemoveNoActivate(os::WindowHandle window) {
  if (Hangs(window)) return Remember(window);  // until the next time
  os::SetWindowExtendedStyle(window, os::WindowExtendedStyle(window) & ~os::kWsExNoActivate);
}

}  // namespace

bool IsExcludedWindow(os::WindowHandle window) {
  const auto className = os::WindowClassName(window);
  return IsCompanionTitle(os::WindowTitle(window)) || IsUiWindow(window, className) ||
         IsShellWindow(window, className) || IsEdgeClass(className) || className == kFrameClass;
}

void EnterNoActivateMode() {
  for (const auto window : os::TopWindows()) {
    if ((os::WindowStyle(window) & os::kWsVisible) != 0 && !KeepsActivation(window)) AddNoActivate(window);
  }
}

void LeaveNoActivateMode() {
  for (const auto window : NoActivateWindows.exchange({})) RemoveNoActivate(window);
}

void LeaveNoActivateModeForGood() {
  gIsOver.set(true);
  LeaveNoActivateMode();
}

bool IsInNoActivateMode() {
  return !NoActivateWindows.get().empty();
}

}  // namespace tessaview

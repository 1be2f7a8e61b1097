#include "uilink/mask_wait.h"

#include "core/process_wide.h"
#include "core/service_timers.h"
#include "os/desktop.h"
#include "power/panel_status.h"

namespace tessaview {
namespace {

bool IsUserAway() {
  const auto foreground = os::WindowClassName(os::ForegroundWindow());
  return foreground == L"Windows.UI.Core.CoreWindow" || foreground == L"BootAppClass" ||
         foreground == L"LockScreenControllerProxyWindow";
}

/// A timer that was stopped may have come already, and be served yet.
ProcessWide<bool> gMaskWaits;

}  // namespace

void TakeMaskOffAtDesktop() {
  gMaskWaits.set(true);
  StartDesktopTimer();
  OnDesktopTimer();
}

void KeepMaskOn() {
  gMaskWaits.set(false);
  StopDesktopTimer();
}

void OnDesktopTimer() {
  if (!gMaskWaits.get() || IsUserAway()) return;
  KeepMaskOn();
  Update_UI_Mask_Status();
}

}  // namespace tessaview

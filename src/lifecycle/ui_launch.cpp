#include "lifecycle/ui_launch.h"

#include <string>

#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "lifecycle/first_sign_in.h"
#include "lifecycle/helper_tools.h"
#include "lifecycle/package_check.h"
#include "lifecycle/ui_activation.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "touch/touch_pad.h"
#include "touch/touch_screen_check.h"
#include "uilink/channel/ui_channel.h"
#include "windows/foreground.h"

namespace tessaview {
namespace {

constexpr int kMostLaunches = 20;
constexpr std::uint32_t kDesktopPauseMs = 500;
constexpr std::uint32_t kLaunchPauseMs = 2000;

/// Behind the lock screen's picture the desktop is there; with no window in the foreground at all it is not.
bool IsDesktopReady() {
  const auto seen = WhatIsInForeground();
  return seen == Foreground::Desktop || seen == Foreground::LockScreen;
}

void WaitForDesktop() {
  while (!IsDesktopReady()) os::Sleep(kDesktopPauseMs);
}

bool IsOpen(const wchar_t* className) {
  return os::FindTopWindow(className) != os::WindowHandle::None;
}

/// Launches the UI until its main window shows, or its guide or video in place of that. Returns the launches made.
int LaunchUntilShown() {
  int launches = 0;
  if (IsOpen(kUiMainClass)) return launches;
  while (launches < kMostLaunches && !IsOpen(kUiGuideClass) && !IsOpen(kUiVideoClass)) {
    ++launches;
    if (isOOBEComplete()) {
      Log(L" Launch UWP \n");
      StartUiLaunchThread();
    }
    os::Sleep(kLaunchPauseMs);
    if (IsOpen(kUiMainClass)) break;
  }
  return launches;
}

/// The last launch counts as a failure even when the window appeared after it; no launch at all is nothing to report.
void ReportLaunches(int launches) {
  if (launches == kMostLaunches) {
    RecordUsage(L"NOT_EXIST_MAINUI");
  } else if (launches > 0) {
    RecordUsage(L"UI_EXIST_WITH_CHECKING_TIMES_" + std::to_wstring(launches));
  }
}

Shared<bool> gLaunchPhaseReached, gLaunchPhaseBegun;

/// The launch phase needs two things: start-up has come far enough, and Windows' setup is over. The later of the two
/// begins it, on its thread.
void LaunchUIOnce() {
  if (!gLaunchPhaseReached.get() || !isOOBEComplete()) return;
  if (!gLaunchPhaseBegun.exchange(true)) LaunchUIAtStart();
}

}  // namespace

bool IsAnyUiWindowOpen() {
  return IsOpen(kUiMainClass) || IsOpen(kUiGuideClass) || IsOpen(kUiVideoClass);
}

void LaunchUIAtStart() {
  if (gTouchScreenHidWrong()) {
    SetModetoTouchPad();
    Log(L"TouchScreen HID is wrong, do not show UI and set mode to touch pad mode.");
    return;
  }
  WaitForDesktop();
  if (!RunPackageCheck()) return;
  StartHelperTools();
  ReportLaunches(LaunchUntilShown());
}

void LaunchUIOnceSetUp() {
  gLaunchPhaseReached.set(true);
  LaunchUIOnce();
}

void LaunchUIAfterSetup() {
  StartThread(L"UI launch phase", LaunchUIOnce);
}

}  // namespace tessaview

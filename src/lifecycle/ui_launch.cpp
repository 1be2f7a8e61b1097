#include "lifecycle/ui_launch.h"

#include <string>

#include "core/service_state.h"
#include "core/trace_log.h"
#include "lifecycle/helper_tools.h"
#include "lifecycle/package_check.h"
#include "lifecycle/ui_activation.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "touch/touch_pad.h"
#include "touch/touch_screen_check.h"
#include "uilink/ui_channel.h"

namespace tessaview {
namespace {

constexpr int kMostLaunches = 20;
constexpr std::uint32_t kDesktopPauseMs = 500;
constexpr std::uint32_t kLaunchPauseMs = 2000;

/// Windows of the sign-in, the lock screen and the first boot; with no window at all the desktop is not there either.
bool IsDesktopReady() {
  const auto foreground = os::WindowClassName(os::ForegroundWindow());
  return !foreground.empty() && foreground != L"Windows.UI.Core.CoreWindow" && foreground != L"BootAppClass";
}

void WaitForDesktop() {
  while (!IsDesktopReady()) os::Sleep(kDesktopPauseMs);
}

bool IsOpen(const wchar_t* className) {
  return os::FindTopWindow(className) != os::WindowHandle::None;
}

/// Launches the UI until its main window shows, or its guide or video window does its work. Returns the launches made.
int LaunchUntilShown() {
  int launches = 0;
  if (IsOpen(kUiMainClass)) return launches;
  while (launches < kMostLaunches && !IsOpen(kUiGuideClass) && !IsOpen(kUiVideoClass)) {
    ++launches;
    if (isOOBEComplete.get()) {
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

}  // namespace

bool IsAnyUiWindowOpen() {
  return IsOpen(kUiMainClass) || IsOpen(kUiGuideClass) || IsOpen(kUiVideoClass);
}

void LaunchUIAtStart() {
  if (gTouchScreenHidWrong.get()) {
    SetModetoTouchPad();
    Log(L"TouchScreen HID is wrong, do not show UI and set mode to touch pad mode.");
    return;
  }
  WaitForDesktop();
  if (!RunPackageCheck()) return;
  StartHelperTools();
  ReportLaunches(LaunchUntilShown());
}

}  // namespace tessaview

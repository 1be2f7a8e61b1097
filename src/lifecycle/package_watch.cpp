#include "core/log_failure.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "lifecycle/first_sign_in.h"
#include "lifecycle/package_check.h"
#include "lifecycle/ui_activation.h"
#include "lifecycle/ui_launch.h"
#include "lifecycle/watches.h"
#include "os/clock.h"
#include "os/watches.h"
#include "touch/touch_screen_check.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kPackages =
    L"SOFTWARE\\Classes\\Local Settings\\Software\\Microsoft\\Windows\\CurrentVersion\\AppModel\\PackageRepository\\"
    L"Packages";

/// One installation writes many entries, for about as long.
constexpr std::uint32_t kCalmMs = 2000;

bool MayLaunchUi() {
  return isOOBEComplete() && !gTouchScreenHidWrong() && !IsAnyUiWindowOpen();
}

void OnPackagesChanged() {
  os::Sleep(kCalmMs);
  Log(L"[PackageWatch] The installed packages changed \n");
  InitialDisplay();
  if (MayLaunchUi() && CheckPackage() && MayLaunchUi()) StartUiLaunchThread();
}

}  // namespace

void StartPackageWatch() {
  StartThread(L"packages", [] {
    LogFailure(L"The installed packages cannot be watched", os::WatchRegistryKey(kPackages, OnPackagesChanged));
  });
}

}  // namespace tessaview

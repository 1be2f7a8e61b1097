#include "lifecycle/ui_watchdog.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "core/trace_log.h"
#include "lifecycle/package_check.h"
#include "lifecycle/ui_activation.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "power/panel_status.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/channel/ui_session.h"

namespace tessaview {
namespace {

constexpr std::string_view kUiProgram = "NorvTessaview.exe";
constexpr const wchar_t* kShopWatchdog = L"RoVaN_Watchdog.exe";  // runs on machines in a shop

constexpr std::uint32_t kShopPauseMs = 3'000, kPauseMs = 300'000, kRoundMs = 60'000;
constexpr int kMostRounds = 3;

/// The system may cut long names, so a part of the name counts as the name. No name at all is no process of ours.
bool IsUiProgram(const std::string& processName) {
  return !processName.empty() && kUiProgram.find(processName) != std::string_view::npos;
}

bool IsShopWatchdogRunning() {
  const auto programs = os::RunningPrograms();
  return programs && std::find(programs->begin(), programs->end(), kShopWatchdog) != programs->end();
}

void PauseBeforeRelaunch() {
  if (IsShopWatchdogRunning()) {
    Log(L"[EndProcess] Is Retail Demo mode and RoVaN_Watchdog.exe exist, after 3 second launch UWP. \n");
    os::Sleep(kShopPauseMs);
  } else {
    os::Sleep(kPauseMs);
  }
}

bool IsUiThere() {
  return os::FindTopWindow(kUiMainClass) != os::WindowHandle::None;
}

void Launch() {
  if (!isTessaviewPowerOn() || !isTessaviewAlive()) return;
  Log(L"******* isTessaviewPowerOn = true , Launch NorvTessaview.exe ******* \n");
  StartUiRelaunchThread();
}

/// The round in which the UI came back, counted from 1; nothing when it did not.
std::optional<int> RoundsUntilBack() {
  for (int round = 1; round <= kMostRounds; ++round) {
    Log(L"******* Launch NorvTessaview.exe again , RetryCount = %d ******* \n", round);
    Launch();
    os::Sleep(kRoundMs);
    if (IsUiThere()) return round;
  }
  return std::nullopt;
}

/// Coming back in the last round counts as a failure; not coming back at all is not reported.
void Report(std::optional<int> rounds) {
  if (!rounds) return;
  if (*rounds == kMostRounds) {
    RecordUsage(L"NOT_EXIST_MAINUI");
  } else {
    RecordUsage(L"UI_EXIST_WITH_CHECKING_TIMES_" + std::to_wstring(*rounds));
  }
}

void BringUiBack() {
  const auto package = CheckPackageQuietly();
  if (package == PackageVerdict::NotInstalled) return RecordUsage(L"NOT_EXIST_UWP");
  if (package == PackageVerdict::Unknown) return;
  if (IsUiThere()) return RecordUsage(L"UI_EXIST_WITH_CHECKING_TIMES_0");
  Report(RoundsUntilBack());
}

}  // namespace

void EndProcess(const std::string& processName) {
  if (!IsUiProgram(processName)) return;
  Log(L" ******* NorvTessaview.exe process be killed ******* \n");
  PauseBeforeRelaunch();
  BringUiBack();
}

}  // namespace tessaview

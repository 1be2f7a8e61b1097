#include "lifecycle/package_check.h"

#include <cstdint>

#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "lifecycle/program_folder.h"
#include "lifecycle/user_session.h"
#include "os/clock.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kCheckTool = L"NorvTessaviewCheck.exe";
constexpr int kMostAttempts = 20;
constexpr int kReportedAttempt = 19;
constexpr std::uint32_t kRetryPauseMs = 500;

constexpr std::uint32_t kNotInstalled = 0, kInstalled = 1;  // exit codes of the check tool

/// Runs the tool once and logs what it says. False when it could not be started. A run that does not end in time leaves
/// `exitCode` as it was.
bool Ask(std::uint32_t& exitCode) {
  if (!CreateProcessWithUserLevel(PathBesideProgram(kCheckTool), exitCode)) {
    Log(L" CreateProcessWithUserLevel Fail \n");
    return false;
  }
  if (exitCode == kInstalled) {
    Log(L" Found Package \n");
  } else if (exitCode == kNotInstalled) {
    Log(L" No Found Package \n");
  } else {
    Log(L" PackageCheck Fail , ExitCode = %d \n", exitCode);
  }
  return true;
}

}  // namespace

bool RunPackageCheck() {
  InitialDisplayUntilCPanelShows();

  std::uint32_t exitCode = kNotInstalled;  // a run that does not end in time leaves the verdict of the one before
  for (int attempt = 1; attempt <= kMostAttempts; ++attempt) {
    const bool started = Ask(exitCode);
    if (started && exitCode == kInstalled) return true;
    os::Sleep(kRetryPauseMs);
    if (attempt == kReportedAttempt && started && exitCode == kNotInstalled) RecordUsage(L"NOT_EXIST_UWP");
  }
  return false;
}

bool CheckPackage() {
  std::uint32_t exitCode = kNotInstalled;
  return Ask(exitCode) && exitCode == kInstalled;
}

PackageVerdict CheckPackageQuietly() {
  const auto exitCode = RunInUserSessionQuietly(PathBesideProgram(kCheckTool));
  if (exitCode == kInstalled) return PackageVerdict::Installed;
  return exitCode == kNotInstalled ? PackageVerdict::NotInstalled : PackageVerdict::Unknown;
}

}  // namespace tessaview

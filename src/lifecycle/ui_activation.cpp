#include "lifecycle/ui_activation.h"

#include "core/log_failure.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "os/processes.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kStartedByService = L"FromTessaviewService";
constexpr std::int64_t kHighestShellError = 32;  // ShellExecuteW answers more on success

void ShellOpenInstead() {
  const auto result = os::ShellOpenNothing();
  if (result > kHighestShellError) {
    Log(L"ShellExecute sucessed\n");
  } else {
    Log(L"ShellExecute failed, return value:%d\n Use AUMID launch. \n", static_cast<int>(result));
  }
}

}  // namespace

void LaunchByAumid(const std::wstring& appUserModelId, const std::wstring& argument) {
  if (appUserModelId.empty()) return ShellOpenInstead();

  Log(L"ShellExecute Failed, Use AUMID Launch.\n");
  if (const auto joined = os::JoinCom(); !joined) {
    Log(L"CoInitializeEx Failed\n");
    return LogFailure(L"The thread cannot join COM", joined);
  }
  const auto manager = os::CreateActivationManager();
  if (!manager) {
    Log(L"CoCreateInstance Failed\n");
    return LogFailure(L"The activation manager cannot be had", manager);
  }
  const auto activated = os::ActivateApplication(*manager, appUserModelId, argument);
  if (activated) {
    Log(L"AppActivationMgr->ActivateApplication Sucessed\n");
  } else {
    Log(L"AppActivationMgr->ActivateApplication Failed\n");
    LogFailure(L"The application cannot be activated", activated);
  }
}

void StartUiLaunchThread() {
  StartThread(L"UI launch", [] { LaunchByAumid(kUiAppUserModelId, kStartedByService); });
}

void StartUiRelaunchThread() {
  StartThread(L"UI launch", [] { LaunchByAumid(kUiAppUserModelId, L""); });
}

}  // namespace tessaview

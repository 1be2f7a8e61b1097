#include "lifecycle/user_session.h"

#include <algorithm>

#include "core/trace_log.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kInteractiveDesktop = L"WinSta0\\Default";
constexpr std::uint32_t kLongestRunMs = 5000;

}  // namespace

std::uint32_t ActiveSession() {
  const auto sessions = os::Sessions();
  if (!sessions) return 0;
  const auto active = std::find_if(sessions->begin(), sessions->end(),
                                   [](const os::Session& session) { return session.state == os::kSessionActive; });
  return active == sessions->end() ? 0 : active->id;
}

std::optional<os::Process> StartInUserSession(const std::wstring& program, const std::wstring& commandLine) {
  auto token = os::SessionUserToken(ActiveSession());
  if (!token) {
    Log(L" WTSQueryUserToken api GetLastError = %d \n", token.error());
    return std::nullopt;
  }
  auto environment = os::CreateEnvironment(*token);
  if (!environment) {
    Log(L" CreateEnvironmentBlock api GetLastError = %d \n", environment.error());
    return std::nullopt;
  }
  auto process = os::StartAsUser(*token, program, commandLine, *environment, kInteractiveDesktop);
  if (!process) {
    Log(L" CreateProcessAsUser api GetLastError = %d \n", process.error());
    // On this path, and on this path only, neither is released.
    token->release();
    environment->release();
    return std::nullopt;
  }
  return std::move(*process);
}

bool CreateProcessWithUserLevel(const std::wstring& program, std::uint32_t& exitCode) {
  const auto process = StartInUserSession(program);
  if (!process) return false;
  const auto wait = os::WaitForProcess(*process, kLongestRunMs);
  switch (wait.outcome) {
    case os::WaitOutcome::Ended:
      exitCode = os::ProcessExitCode(*process).value_or(exitCode);
      break;
    case os::WaitOutcome::TimedOut:
      Log(L" WaitForSingleObject WAIT_TIMEOUT \n");
      break;
    case os::WaitOutcome::Failed:
      Log(L" WaitForSingleObject api GetLastError = %d \n", wait.error);
      break;
  }
  return true;
}

}  // namespace tessaview

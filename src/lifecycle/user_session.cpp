#include "lifecycle/user_session.h"

#include "core/trace_log.h"
#include "core/user_rights.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kInteractiveDesktop = L"WinSta0\\Default";
constexpr std::uint32_t kLongestRunMs = 5000;

/// What a program needs to be started as the user, in this order.
enum class Step { Token, Environment, Process };

struct Start {
  os::Result<os::Process> process;  // or why the failed step failed
  Step failedStep = Step::Token;
};

Start TryStart(const std::wstring& program, const std::wstring& commandLine) {
  auto token = UserToken();
  if (!token) return {os::Error{token.error()}, Step::Token};
  auto environment = os::CreateEnvironment(*token);
  if (!environment) return {os::Error{environment.error()}, Step::Environment};
  auto process = os::StartAsUser(*token, program, commandLine, *environment, kInteractiveDesktop);
  if (!process) {
    // On this path, and on this path only, neither is released.
    token->release();
    environment->release();
  }
  return {std::move(process), Step::Process};
}

}  // namespace

std::optional<os::Process> StartInUserSession(const std::wstring& program, const std::wstring& commandLine) {
  auto start = TryStart(program, commandLine);
  if (start.process) return std::move(*start.process);
  switch (start.failedStep) {
    case Step::Token:
      Log(L" WTSQueryUserToken api GetLastError = %d \n", start.process.error());
      break;
    case Step::Environment:
      Log(L" CreateEnvironmentBlock api GetLastError = %d \n", start.process.error());
      break;
    case Step::Process:
      Log(L" CreateProcessAsUser api GetLastError = %d \n", start.process.error());
      break;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> RunInUserSessionQuietly(const std::wstring& program) {
  constexpr std::uint32_t kNotEnded = 0;
  const auto start = TryStart(program, {});
  if (!start.process) return std::nullopt;
  const bool ended = os::WaitForProcess(*start.process, kLongestRunMs).outcome == os::WaitOutcome::Ended;
  return ended ? os::ProcessExitCode(*start.process).value_or(kNotEnded) : kNotEnded;
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

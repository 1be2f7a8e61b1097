#include "windows/patient_calls.h"

#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/processes.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kHungAfterMs = 5000;  // what Windows itself gives a program
constexpr std::uint32_t kIdleWaitMs = 500;
constexpr int kMostTries = 10;

struct Attempts {
  bool succeeded = false;
  int retries = 0;
  std::uint32_t error = 0;  // of the last try
};

/// Tries until `attempt` succeeds, each time after a wait for the window's program to be idle.
template <class Attempt>
Attempts Retry(os::WindowHandle window, Attempt attempt) {
  const auto opened = os::OpenToAwaitIdle(os::WindowProcessId(window));
  const os::Process nobody;
  const auto& process = opened ? *opened : nobody;
  Attempts attempts;
  for (; attempts.retries < kMostTries; ++attempts.retries) {
    os::AwaitInputIdle(process, kIdleWaitMs);
    if (Hangs(window)) break;
    const os::Status outcome = attempt();
    attempts.succeeded = static_cast<bool>(outcome);
    attempts.error = outcome.error();
    if (attempts.succeeded) break;
  }
  return attempts;
}

}  // namespace

bool Hangs(os::WindowHandle window) {
  if (!os::IsWindow(window) || os::AnswersWithin(window, kHungAfterMs) || !os::IsWindow(window)) return false;
  Log(L"The window's program does not answer, HWND = %x \n", window);
  return true;
}

void Show(os::WindowHandle window, os::ShowCommand command) {
  if (Hangs(window)) return;
  (void)os::ShowWindow(window, command);  // tells no failure from a window that was hidden before
}

bool RetryWithShowWindow(os::WindowHandle window, os::ShowCommand nCmdShow) {
  // What the system returns is the window's visibility before: a hidden window succeeds with the second try.
  const auto [succeeded, retries, error] = Retry(window, [&] { return os::ShowWindow(window, nCmdShow); });
  if (succeeded) {
    Log(L"RetryWithShowWindow Successed, HWND = %x, nCmdShow = %d, retryTimes = %d.", window, nCmdShow, retries);
  } else {
    Log(L"============= RetryWithShowWindow Failed, HWND = %x, nCmdShow = %d, retryTimes = %d, GetLastError = %d. "
        L"=============",
        window, nCmdShow, retries, error);
  }
  return succeeded;
}

bool RetryWithMoveWindow(os::WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height) {
  const auto [succeeded, retries, error] = Retry(window, [&] { return os::MoveWindow(window, x, y, width, height); });
  if (succeeded) {
    Log(L"RetryWithMoveWindow Successed, HWND = %x, PosX = %d, PosY = %d, retryTimes = %d.", window, x, y, retries);
  } else {
    Log(L"============= RetryWithMoveWindow Failed, HWND = %x, PosX = %d, PosY = %d, retryTimes = %d, GetLastError = "
        L"%d. =============",
        window, x, y, retries, error);
  }
  return succeeded;
}

}  // namespace tessaview

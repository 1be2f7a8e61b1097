#include "os/processes.h"

#include <span>
#include <vector>

#include "os/win32/win32_support.h"

namespace os {

void CloseProcess(ProcessHandle process) noexcept {
  CloseHandle(win32::ToNative<HANDLE>(process));
}

Result<Process> StartAsUser(const Token& token, const std::wstring& program, const std::wstring& commandLine,
                            const Environment& environment, const wchar_t* desktop) {
  std::wstring writableCommandLine = commandLine;  // the call may change both texts
  std::wstring writableDesktop = desktop;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.lpDesktop = writableDesktop.data();
  PROCESS_INFORMATION started{};
  if (CreateProcessAsUserW(win32::ToNative<HANDLE>(token.get()), program.c_str(),
                           commandLine.empty() ? nullptr : writableCommandLine.data(), nullptr, nullptr, FALSE,
                           CREATE_UNICODE_ENVIRONMENT | NORMAL_PRIORITY_CLASS,
                           win32::ToNative<void*>(environment.get()), nullptr, &startup, &started) == FALSE) {
    return win32::LastError();
  }
  CloseHandle(started.hThread);
  return Process(win32::ToDoor<ProcessHandle>(started.hProcess));
}

ProcessWait WaitForProcess(const Process& process, std::uint32_t timeoutMs) {
  switch (WaitForSingleObject(win32::ToNative<HANDLE>(process.get()), timeoutMs)) {
    case WAIT_OBJECT_0:
      return {WaitOutcome::Ended};
    case WAIT_TIMEOUT:
      return {WaitOutcome::TimedOut};
    default:
      return {WaitOutcome::Failed, GetLastError()};
  }
}

std::optional<std::uint32_t> ProcessExitCode(const Process& process) {
  DWORD code = 0;
  if (GetExitCodeProcess(win32::ToNative<HANDLE>(process.get()), &code) == FALSE) return {};
  return code;
}

std::wstring ProcessImagePath(std::uint32_t processId) {
  const win32::LocalHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
  if (!process) return {};
  constexpr std::size_t kLongestOfAll = 0x8000, kMost = 259;
  std::vector<wchar_t> path(kLongestOfAll);  // a path that does not fit is not told at all
  auto size = static_cast<DWORD>(path.size());
  if (QueryFullProcessImageNameW(process.get(), 0, path.data(), &size) == FALSE) return {};
  return win32::TextOf(std::span(path).first(kMost));
}

}  // namespace os

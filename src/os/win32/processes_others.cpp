// Programs of other processes: waiting for them, ending them, and what they are.
#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <cwchar>

#include "os/processes.h"
#include "os/win32/version_resource.h"
#include "os/win32/win32_support.h"

// Since Windows 8; the cross-compiler's headers lack appmodel.h.
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFullName(HANDLE process, UINT32* length, PWSTR name);
extern "C" __declspec(dllimport) LONG WINAPI GetPackageFamilyName(HANDLE process, UINT32* length, PWSTR name);

namespace os {
namespace {

/// What one of the package functions tells `of` a process or a package; fails also when the system lacks the function.
template <class Subject>
Result<std::wstring> Ask(LONG(WINAPI* function)(Subject, UINT32*, PWSTR), Subject of) {
  if (function == nullptr) return Error{ERROR_PROC_NOT_FOUND};
  std::array<wchar_t, 260> text{};
  auto length = static_cast<UINT32>(text.size());
  if (const LONG code = function(of, &length, text.data()); code != ERROR_SUCCESS) {
    return Error{static_cast<std::uint32_t>(code)};
  }
  return win32::TextOf(text);
}

std::wstring TextOrNone(const Result<std::wstring>& text) {
  return text ? *text : std::wstring();
}

Result<Process> Open(std::uint32_t processId, DWORD access) {
  return win32::OwnOrLastError<Process>(OpenProcess(access, FALSE, processId));
}

/// A language and a code page, as the version resource lists them.
struct Translation {
  std::uint16_t language, codePage;
};

}  // namespace

Result<Process> OpenToAwaitIdle(std::uint32_t processId) {
  return Open(processId, PROCESS_QUERY_INFORMATION | SYNCHRONIZE);
}

void AwaitInputIdle(const Process& process, std::uint32_t timeoutMs) {
  WaitForInputIdle(win32::ToNative<HANDLE>(process.get()), timeoutMs);
}

Result<Process> OpenToEnd(std::uint32_t processId) {
  return Open(processId, PROCESS_TERMINATE | SYNCHRONIZE);
}

Status TerminateProcess(const Process& process, std::uint32_t exitCode) {
  return win32::DoneOrLastError(::TerminateProcess(win32::ToNative<HANDLE>(process.get()), exitCode));
}

Result<ProcessPackage> QueryProcessPackage(std::uint32_t processId) {
  const win32::LocalHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
  if (!process) return win32::LastError();
  constexpr auto kLibrary = L"kernel32.dll";
  using OfProcess = LONG WINAPI(HANDLE, UINT32*, PWSTR);
  using OfPackage = LONG WINAPI(PCWSTR, UINT32*, PWSTR);
  ProcessPackage package;
  package.appUserModelId =
      Ask(win32::FindSystemFunction<OfProcess>(kLibrary, "GetApplicationUserModelId"), process.get());
  package.fullName = TextOrNone(Ask(GetPackageFullName, process.get()));
  package.familyName = TextOrNone(Ask(GetPackageFamilyName, process.get()));
  if (package.fullName.empty()) return package;
  package.path = TextOrNone(
      Ask(win32::FindSystemFunction<OfPackage>(kLibrary, "GetPackagePathByFullName"), package.fullName.c_str()));
  return package;
}

std::vector<std::wstring> ProductNames(const std::wstring& path) {
  constexpr std::size_t kMost = 259;
  const win32::VersionResource resource(path);
  const auto table = resource.Data(L"\\VarFileInfo\\Translation");
  std::vector<std::wstring> names;
  for (std::size_t at = 0; at + sizeof(Translation) <= table.size(); at += sizeof(Translation)) {
    Translation translation{};
    std::memcpy(&translation, table.data() + at, sizeof translation);
    std::array<wchar_t, 64> block{};
    std::swprintf(block.data(), block.size(), L"\\StringFileInfo\\%04x%04x\\ProductName", translation.language,
                  translation.codePage);
    const auto name = resource.Text(block.data());
    if (!name.empty()) names.push_back(win32::TextOf(name.first(std::min(name.size(), kMost))));
  }
  return names;
}

Result<std::vector<std::wstring>> RunningPrograms() {
  const HANDLE taken = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  if (taken == INVALID_HANDLE_VALUE) return win32::LastError();
  const win32::LocalHandle snapshot(taken);
  std::vector<std::wstring> programs;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL has = Process32FirstW(taken, &entry); has != FALSE; has = Process32NextW(taken, &entry)) {
    programs.push_back(win32::TextOf(entry.szExeFile));
  }
  return programs;
}

}  // namespace os

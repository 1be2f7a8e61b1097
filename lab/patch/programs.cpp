// Programs that the controller starts in the user's session, and what the package check among them asks the system.
#include <windows.h>

#include <array>
#include <cwchar>

#include "kit/laptop_state.h"
#include "kit/process.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

/// This DLL's own file.
std::wstring OwnPath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(OwnPath), &module);
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(module, path.data(), MAX_PATH);
  return path.data();
}

/// The started program gets this patch as the controller did: before its first instruction.
BOOL WINAPI StartPatched(HANDLE token, LPCWSTR program, LPWSTR commandLine, LPSECURITY_ATTRIBUTES process,
                         LPSECURITY_ATTRIBUTES thread, BOOL inherit, DWORD flags, LPVOID environment, LPCWSTR folder,
                         LPSTARTUPINFOW startup, LPPROCESS_INFORMATION started) {
  if (!CreateProcessAsUserW(token, program, commandLine, process, thread, inherit, flags | CREATE_SUSPENDED,
                            environment, folder, startup, started)) {
    return FALSE;
  }
  if (!LoadInto(started->hProcess, OwnPath())) Report(L"patch not loaded into a started program");
  if ((flags & CREATE_SUSPENDED) == 0) ResumeThread(started->hThread);
  return TRUE;
}

/// Wine has no packages and does not export the call. The laptop has the UI's package, or not, or fails to say.
LONG WINAPI CountPackages(PCWSTR family, UINT32* count, PWSTR* fullNames, UINT32* length, WCHAR*) {
  constexpr wchar_t kUiFamily[] = L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe";
  constexpr wchar_t kUiPackage[] = L"7C31A0D4.TessaviewMaster_1.0.0.0_x64__h2kq9vx81tmwe";
  if (fullNames != nullptr || *length != 0) return ERROR_INVALID_PARAMETER;  // only the count is served here
  const std::uint32_t state = SharedLaptopState()->packageCheck;
  if (state != kPackageMissing && state != kPackageInstalled) {
    Report(L"patch packages of " + std::wstring(family) + L": error " + std::to_wstring(state));
    return static_cast<LONG>(state);
  }
  const bool installed = state == kPackageInstalled && std::wcscmp(family, kUiFamily) == 0;
  Report(L"patch packages of " + std::wstring(family) + (installed ? L": 1" : L": none"));
  *count = installed ? 1 : 0;
  *length = installed ? static_cast<UINT32>(std::size(kUiPackage)) : 0;
  return installed ? ERROR_INSUFFICIENT_BUFFER : ERROR_SUCCESS;
}

}  // namespace

std::array<Redirection, 2> ProgramCalls() {
  return {{{"CreateProcessAsUserW", reinterpret_cast<void*>(StartPatched)},
           {"GetPackagesByPackageFamily", reinterpret_cast<void*>(CountPackages)}}};
}

}  // namespace lab::patch

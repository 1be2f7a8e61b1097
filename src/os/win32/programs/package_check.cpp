// NorvTessaviewCheck.exe: its exit code says whether the UI's package is installed for the user that it runs as. The
// controller runs with system rights and cannot see that for itself.
#include <windows.h>

#include <array>
#include <string_view>

#include "lifecycle/ui_activation.h"

// Since Windows 8.1; the cross-compiler's headers lack appmodel.h.
extern "C" __declspec(dllimport) LONG WINAPI
    GetPackagesByPackageFamily(PCWSTR family, UINT32* count, PWSTR* fullNames, UINT32* length, WCHAR* buffer);

namespace {

// Exit codes that the controller reads; every other one is a failure.
constexpr UINT kNotInstalled = 0, kInstalled = 1;

/// The family that the UI's package belongs to: its application id up to the "!".
constexpr auto kUiFamily = [] {
  constexpr std::wstring_view kId = tessaview::kUiAppUserModelId;
  std::array<wchar_t, kId.find(L'!') + 1> family{};  // ends with a NUL
  kId.copy(family.data(), family.size() - 1);
  return family;
}();

UINT ExitCode(LONG status, UINT32 packages) {
  // The names do not fit into no buffer, which is fine: how many there are is all that is asked.
  if (status == ERROR_SUCCESS || status == ERROR_INSUFFICIENT_BUFFER) return packages > 0 ? kInstalled : kNotInstalled;
  return static_cast<UINT>(HRESULT_FROM_WIN32(status));  // as an HRESULT no error is mistaken for an answer
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, PWSTR /*commandLine*/, int /*show*/) {
  UINT32 packages = 0, length = 0;
  const LONG status = GetPackagesByPackageFamily(kUiFamily.data(), &packages, nullptr, &length, nullptr);
  return static_cast<int>(ExitCode(status, packages));
}

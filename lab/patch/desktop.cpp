// The secure desktop, which Wine has none of: its name is told while it has the screen.
#include <windows.h>

#include <cstring>

#include "kit/laptop_state.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

BOOL WINAPI ObjectInformation(HANDLE object, int what, PVOID told, DWORD size, LPDWORD needed) {
  constexpr wchar_t kSecure[] = L"Winlogon";
  if (what != UOI_NAME || SharedLaptopState()->secureDesktop == 0 || size < sizeof kSecure) {
    return GetUserObjectInformationW(object, what, told, size, needed);
  }
  std::memcpy(told, kSecure, sizeof kSecure);
  return TRUE;
}

}  // namespace

std::array<Redirection, 1> DesktopCalls() {
  return {{{"GetUserObjectInformationW", reinterpret_cast<void*>(ObjectInformation)}}};
}

}  // namespace lab::patch

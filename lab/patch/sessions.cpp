// Sessions. Wine 8 lists none: here the user of session 1 is at the console, as Wine 10 has it.
#include <windows.h>

#include <wtsapi32.h>

#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

/// Freed by WTSFreeMemory, which in Wine is the process heap's.
BOOL WINAPI ListSessions(HANDLE server, DWORD reserved, DWORD version, PWTS_SESSION_INFOW* sessions, DWORD* count) {
  if (WTSEnumerateSessionsW(server, reserved, version, sessions, count) && *count != 0) return TRUE;
  static wchar_t services[] = L"Services", console[] = L"Console";
  auto* list = static_cast<WTS_SESSION_INFOW*>(HeapAlloc(GetProcessHeap(), 0, 2 * sizeof(WTS_SESSION_INFOW)));
  if (list == nullptr) return FALSE;
  list[0] = {0, services, WTSDisconnected};
  list[1] = {1, console, WTSActive};
  *sessions = list;
  *count = 2;
  return TRUE;
}

/// Wine knows no sessions, but gives the token of its one user for any.
BOOL WINAPI UserToken(ULONG session, PHANDLE token) {
  Report(L"patch user of session " + std::to_wstring(session));
  return WTSQueryUserToken(session, token);
}

}  // namespace

std::array<Redirection, 2> SessionCalls() {
  return {{{"WTSEnumerateSessionsW", reinterpret_cast<void*>(ListSessions)},
           {"WTSQueryUserToken", reinterpret_cast<void*>(UserToken)}}};
}

}  // namespace lab::patch

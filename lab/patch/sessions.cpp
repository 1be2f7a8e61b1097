// The session whose user the controller acts for.
#include <windows.h>

#include <wtsapi32.h>

#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

/// Wine knows no sessions, but gives the token of its one user for any.
BOOL WINAPI UserToken(ULONG session, PHANDLE token) {
  Report(L"patch user of session " + std::to_wstring(session));
  return WTSQueryUserToken(session, token);
}

}  // namespace

std::array<Redirection, 1> SessionCalls() {
  return {{{"WTSQueryUserToken", reinterpret_cast<void*>(UserToken)}}};
}

}  // namespace lab::patch

// Sessions, access tokens and the rights they carry.
#include <windows.h>

#include <userenv.h>
#include <wtsapi32.h>

#include <array>

#include "os/processes.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct SessionListFreer {
  void operator()(WTS_SESSION_INFOW* list) const noexcept { WTSFreeMemory(list); }
};

Result<Token> OpenOwnToken(DWORD access) {
  HANDLE token = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), access, &token) == FALSE) return win32::LastError();
  return Token(win32::ToDoor<TokenHandle>(token));
}

}  // namespace

Result<std::vector<Session>> Sessions() {
  WTS_SESSION_INFOW* listed = nullptr;
  DWORD count = 0;
  if (WTSEnumerateSessionsW(WTS_CURRENT_SERVER_HANDLE, 0, 1, &listed, &count) == FALSE) return win32::LastError();
  const std::unique_ptr<WTS_SESSION_INFOW, SessionListFreer> owned(listed);

  std::vector<Session> sessions;
  sessions.reserve(count);
  for (const auto& session : std::span(listed, count)) {
    sessions.push_back({session.SessionId, static_cast<std::uint32_t>(session.State)});
  }
  return sessions;
}

Result<std::uint32_t> OwnSession() {
  DWORD session = 0;
  if (ProcessIdToSessionId(GetCurrentProcessId(), &session) == FALSE) return win32::LastError();
  return session;
}

std::optional<std::uint32_t> ConsoleSession() {
  constexpr DWORD kNone = 0xFFFFFFFF;
  const auto session = WTSGetActiveConsoleSessionId();
  return session == kNone ? std::nullopt : std::optional<std::uint32_t>(session);
}

void CloseToken(TokenHandle token) noexcept {
  CloseHandle(win32::ToNative<HANDLE>(token));
}

Result<Token> SessionUserToken(std::uint32_t sessionId) {
  HANDLE token = nullptr;
  if (WTSQueryUserToken(sessionId, &token) == FALSE) return win32::LastError();
  return Token(win32::ToDoor<TokenHandle>(token));
}

Result<Token> OwnToken() {
  return OpenOwnToken(TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY);
}

Status EnablePrivilege(const Token& token, const wchar_t* privilege) {
  TOKEN_PRIVILEGES change{};
  change.PrivilegeCount = 1;
  change.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (LookupPrivilegeValueW(nullptr, privilege, &change.Privileges[0].Luid) == FALSE) return win32::LastError();
  if (AdjustTokenPrivileges(win32::ToNative<HANDLE>(token.get()), FALSE, &change, 0, nullptr, nullptr) == FALSE) {
    return win32::LastError();
  }
  return win32::DoneOrCode(GetLastError());  // the call succeeds also when the token does not hold the privilege
}

bool RunsAsSystem() {
  struct alignas(TOKEN_USER) UserBuffer {
    std::array<std::uint8_t, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> bytes;
  };
  const auto token = OpenOwnToken(TOKEN_QUERY);
  if (!token) return true;
  UserBuffer user{};
  DWORD size = 0;
  if (GetTokenInformation(win32::ToNative<HANDLE>(token->get()), TokenUser, &user, sizeof user, &size) == FALSE) {
    return true;
  }
  return IsWellKnownSid(reinterpret_cast<const TOKEN_USER*>(&user)->User.Sid, WinLocalSystemSid) != FALSE;
}

Status Impersonate(const Token& token) {
  return win32::DoneOrLastError(ImpersonateLoggedOnUser(win32::ToNative<HANDLE>(token.get())));
}

void RevertToOwnRights() noexcept {
  // Going on with somebody else's rights would be worse than ending: whoever watches the process starts it again.
  if (RevertToSelf() == FALSE) ::TerminateProcess(GetCurrentProcess(), GetLastError());
}

void DestroyEnvironment(EnvironmentHandle environment) noexcept {
  DestroyEnvironmentBlock(win32::ToNative<void*>(environment));
}

Result<Environment> CreateEnvironment(const Token& token) {
  void* environment = nullptr;
  if (CreateEnvironmentBlock(&environment, win32::ToNative<HANDLE>(token.get()), TRUE) == FALSE) {
    return win32::LastError();
  }
  return Environment(win32::ToDoor<EnvironmentHandle>(environment));
}

}  // namespace os

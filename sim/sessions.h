#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "os/first_sign_in.h"
#include "os/processes.h"
#include "sim/handle_table.h"
#include "sim/hooks.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"

namespace sim {

/// A session of the machine.
struct SessionState {
  std::uint32_t id = 0;
  std::uint32_t state = 0;  // WTS_CONNECTSTATE_CLASS
  bool signedIn = false;    // a user is, so that there is a token
};

/// Sessions, users' tokens, rights, and the first sign-in of the machine.
class Sessions {
 public:
  class Door;

  Sessions(Scheduler& scheduler, Desktop& desktop, ServiceWindow& window, Hooks& hooks)
      : scheduler_(scheduler), desktop_(desktop), window_(window), hooks_(hooks) {}

  static constexpr std::uint32_t kActive = 0, kDisconnected = 4, kListen = 6;  // WTS_CONNECTSTATE_CLASS

  /// The sessions, in the system's order; a test may change them at any time.
  std::vector<SessionState> all = {{0, kDisconnected, false}, {1, kActive, true}, {65536, kListen, false}};
  /// Nobody is signed in at the console.
  void SignOut();

  // ---- stories; the laptop settles after each ----
  /// The lock screen covers the desktop and is the foreground until Unlock.
  void Lock();
  void Unlock();
  /// Windows asks for consent, or for a password, on a desktop of its own; then the user's is back.
  void ShowSecureDesktop() { SwitchDesktop(true); }
  void HideSecureDesktop() { SwitchDesktop(false); }
  [[nodiscard]] bool IsSecureDesktopUp() const { return secureDesktop_; }
  /// The system asks whether the session may end; `reason` is made of the ENDSESSION_ values.
  void End(std::uint32_t reason);
  /// Windows' out-of-box setup ends: whoever waits for it is called on a thread of the system's.
  void FinishSetup();

  bool setupComplete = true;

  // ---- this process's rights ----
  bool runsAsSystem = true;
  std::set<std::wstring> missingPrivileges;  // the own token does not hold these
  [[nodiscard]] bool PrivilegeEnabled(const std::wstring& name) const { return enabledPrivileges_.contains(name); }

  /// Whether the calling thread acts with a user's rights.
  [[nodiscard]] bool ImpersonatingNow() const;

  [[nodiscard]] std::size_t OpenTokens() const { return tokens_.size(); }
  [[nodiscard]] std::size_t OpenEnvironments() const { return environments_.size(); }
  [[nodiscard]] bool SetupWaitRegistered() const { return onSetup_ != nullptr; }

 private:
  void Tell(std::uint32_t event);
  void SwitchDesktop(bool secure);

  struct TokenOf {
    std::optional<std::uint32_t> session;  // none: this process's own
  };
  Scheduler& scheduler_;
  Desktop& desktop_;
  ServiceWindow& window_;
  Hooks& hooks_;
  HandleTable<os::TokenHandle, TokenOf> tokens_;
  HandleTable<os::EnvironmentHandle, std::uint32_t> environments_;
  std::set<std::wstring> enabledPrivileges_;
  std::set<std::uint32_t> impersonating_;  // threads
  void (*onSetup_)() = nullptr;
  bool secureDesktop_ = false;
};

class Sessions::Door : public Sessions {
 public:
  using Sessions::Sessions;

  os::Result<os::Token> UserToken(std::uint32_t sessionId);
  os::Token OwnToken() { return os::Token(tokens_.Open({})); }
  os::Status EnablePrivilege(os::TokenHandle token, const wchar_t* privilege);
  os::Status Impersonate(os::TokenHandle token);
  void Revert();
  os::Result<os::Environment> CreateEnvironment(os::TokenHandle token);
  /// The session of an open user token or environment; nothing for any other.
  [[nodiscard]] std::optional<std::uint32_t> SessionOf(os::TokenHandle token);
  [[nodiscard]] std::optional<std::uint32_t> SessionOf(os::EnvironmentHandle environment);
  void Close(os::TokenHandle token) noexcept { tokens_.Close(token); }
  void Close(os::EnvironmentHandle environment) noexcept { environments_.Close(environment); }
  os::Result<os::SetupWait> WaitForSetup(void (*onCompleted)());
  void EndWaitForSetup() { onSetup_ = nullptr; }
  /// The process is gone, and all it held.
  void EndProcess();
};

}  // namespace sim

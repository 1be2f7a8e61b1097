#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
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
///
/// Of the controllers only that of the session `own` runs. What those of other users do, a test does in their place: to
/// the firmware, the displays, the registry and the settings file, which all share.
class Sessions {
 public:
  class Door;

  Sessions(Scheduler& scheduler, Desktop& desktop, ServiceWindow& window, Hooks& hooks)
      : scheduler_(scheduler), desktop_(desktop), window_(window), hooks_(hooks) {}

  static constexpr std::uint32_t kActive = 0, kDisconnected = 4, kListen = 6;  // WTS_CONNECTSTATE_CLASS
  static constexpr std::uint32_t kOther = 2;                                   // the session of the next user

  /// The sessions, in the system's order; a test may change them at any time.
  std::vector<SessionState> all = {{0, kDisconnected, false}, {1, kActive, true}, {65536, kListen, false}};
  std::uint32_t own = 1;                     // the session that the controller belongs to
  std::optional<std::uint32_t> console = 1;  // the one at the screen and keyboard; none while that changes
  /// Nobody is signed in at the console.
  void SignOut();

  // ---- stories; the laptop settles after each ----
  /// The lock screen covers the desktop and is the foreground until Unlock.
  void Lock();
  void Unlock();

  // ---- several users: scripts of codes with their gaps (session_scripts.cpp); the laptop settles after each ----
  // From the first code on the user is elsewhere: no key, no mouse and no foreground reach the controller's desktop,
  // and its calls to the displays are refused, also for a moment after he is back.
  /// Another user takes the console: the session is locked before, or not.
  void SwitchAway();
  void LoseConsole();
  /// The console is another session's, and neither a code nor a refused call has told so yet.
  void LoseConsoleUntold() { console.reset(); }
  /// The user is back at the console, and then unlocks it.
  void SwitchBack();
  /// "Switch user", and back to oneself before anything else happened.
  void SwitchToOneself();
  /// The user goes on from another machine, and leaves there.
  void RemoteTakesOver();
  void RemoteEnds();
  /// An administrator puts the session back to the console, where it is not locked.
  void IsPutBack();
  /// The user signs out, which ends the controller's process; and in again, before it is started.
  void LogOff();
  void SignIn();
  [[nodiscard]] bool ReachesDisplays() const;
  /// What ends the process.
  void WhenLoggedOff(std::function<void()> then) { loggedOff_ = std::move(then); }

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

  /// The session with whose user's rights the calling thread acts; none with its own.
  [[nodiscard]] std::optional<std::uint32_t> ActingAs() const;
  [[nodiscard]] bool AnyThreadActsAsUser() const { return !actingAs_.empty(); }

  [[nodiscard]] std::size_t OpenTokens() const { return tokens_.size(); }
  [[nodiscard]] std::size_t OpenEnvironments() const { return environments_.size(); }
  [[nodiscard]] bool SetupWaitRegistered() const { return onSetup_ != nullptr; }

 private:
  struct Step;
  void Play(std::span<const Step> script);
  void Take(std::uint32_t code);
  SessionState& Of(std::uint32_t session);
  void ComeBack();
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
  std::map<std::uint32_t, std::uint32_t> actingAs_;  // by thread
  void (*onSetup_)() = nullptr;
  bool secureDesktop_ = false;
  bool isLocked_ = false;                  // in a script
  std::uint64_t displaysReachedAtMs_ = 0;  // while the user is here
  std::function<void()> loggedOff_;
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

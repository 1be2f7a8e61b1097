#include "sim/sessions.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "sim/system_errors.h"

namespace sim {
namespace {

constexpr std::uint32_t kLocked = 7, kUnlocked = 8;  // WTS_SESSION_LOCK, WTS_SESSION_UNLOCK
constexpr const wchar_t* kPrivileges[] = {L"SeCreateTokenPrivilege", L"SeDebugPrivilege",
                                          L"SeSystemEnvironmentPrivilege", L"SeTcbPrivilege"};
constexpr auto kLockScreenClass = L"Windows.UI.Core.CoreWindow";

}  // namespace

// ---- Stories ----

void Sessions::SignOut() {
  for (auto& session : all) {
    if (session.state == kActive) session = {session.id, kDisconnected, false};
  }
}

void Sessions::Lock() {
  desktop_.OpenInForeground({.className = kLockScreenClass,
                             .title = L"Windows Default Lock Screen",
                             .program = L"C:\\Windows\\SystemApps\\LockApp.exe"});
  Tell(kLocked);
}

void Sessions::Unlock() {
  desktop_.CloseAll(kLockScreenClass);
  hooks_.Unlock();
  Tell(kUnlocked);
}

void Sessions::SwitchDesktop(bool secure) {
  secureDesktop_ = secure;
  desktop_.Raise(os::WindowEvent::DesktopSwitch, os::WindowHandle::None);
  scheduler_.SettleStory();
}

void Sessions::Tell(std::uint32_t event) {
  if (window_.HearsOfSessions()) window_.Post([=](const auto& events) { events.sessionChange(event); });
  scheduler_.SettleStory();
}

void Sessions::End(std::uint32_t reason) {
  window_.Send([=](const auto& events) { events.queryEndSession(reason); });
  scheduler_.SettleStory();
}

void Sessions::FinishSetup() {
  setupComplete = true;
  if (auto* const call = std::exchange(onSetup_, nullptr)) scheduler_.StartThread(L"setup complete", call);
  scheduler_.SettleStory();
}

// ---- Tokens and rights ----

os::Result<os::Token> Sessions::Door::UserToken(std::uint32_t sessionId) {
  const auto found =
      std::find_if(all.begin(), all.end(), [=](const SessionState& session) { return session.id == sessionId; });
  if (found == all.end()) return os::Error{kFileNotFound};
  if (!found->signedIn) return os::Error{kNoToken};
  return os::Token(tokens_.Open({.session = sessionId}));
}

os::Status Sessions::Door::EnablePrivilege(os::TokenHandle token, const wchar_t* privilege) {
  const auto* of = tokens_.Find(token);
  if (of == nullptr) return os::Error{kInvalidHandle};
  const auto isIt = [=](const wchar_t* known) { return std::wstring_view(known) == privilege; };
  if (std::none_of(std::begin(kPrivileges), std::end(kPrivileges), isIt)) return os::Error{kNoSuchPrivilege};
  if (of->session || missingPrivileges.contains(privilege)) return os::Error{kNotAllAssigned};
  enabledPrivileges_.insert(privilege);
  return os::Done{};
}

os::Status Sessions::Door::Impersonate(os::TokenHandle token) {
  const auto session = SessionOf(token);
  if (!session) return os::Error{kInvalidHandle};
  actingAs_[Scheduler::ThreadId()] = *session;
  return os::Done{};
}

void Sessions::Door::Revert() {
  actingAs_.erase(Scheduler::ThreadId());
}

std::optional<std::uint32_t> Sessions::ActingAs() const {
  const auto found = actingAs_.find(Scheduler::ThreadId());
  return found == actingAs_.end() ? std::nullopt : std::optional(found->second);
}

os::Result<os::Environment> Sessions::Door::CreateEnvironment(os::TokenHandle token) {
  const auto session = SessionOf(token);
  if (!session) return os::Error{kInvalidHandle};
  return os::Environment(environments_.Open(*session));
}

std::optional<std::uint32_t> Sessions::Door::SessionOf(os::TokenHandle token) {
  const auto* of = tokens_.Find(token);
  return of == nullptr ? std::nullopt : of->session;
}

std::optional<std::uint32_t> Sessions::Door::SessionOf(os::EnvironmentHandle environment) {
  const auto* session = environments_.Find(environment);
  return session == nullptr ? std::nullopt : std::optional(*session);
}

// ---- First sign-in ----

os::Result<os::SetupWait> Sessions::Door::WaitForSetup(void (*onCompleted)()) {
  if (setupComplete) return os::Error{kInvalidState};
  onSetup_ = onCompleted;
  return static_cast<os::SetupWait>(1);
}

void Sessions::Door::EndProcess() {
  tokens_.CloseAll();
  environments_.CloseAll();
  enabledPrivileges_.clear();
  actingAs_.clear();
  onSetup_ = nullptr;
}

}  // namespace sim

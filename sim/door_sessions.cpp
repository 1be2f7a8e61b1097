#include "os/first_sign_in.h"
#include "os/processes.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

// ---- First sign-in ----

Result<bool> IsSetupComplete() {
  if (const auto call = sim::Enter<&IsSetupComplete>(); call.failed()) return Error{call.error()};
  return Machine().sessions.setupComplete;
}

Result<SetupWait> WaitForSetup(void (*onCompleted)()) {
  if (const auto call = sim::Enter<&WaitForSetup>(); call.failed()) return Error{call.error()};
  return Machine().sessions.WaitForSetup(onCompleted);
}

void EndWaitForSetup(SetupWait wait) {
  sim::Enter<&EndWaitForSetup>();
  if (wait != SetupWait::None) Machine().sessions.EndWaitForSetup();
}

// ---- Sessions, tokens, rights ----

Result<std::vector<Session>> Sessions() {
  const auto call = sim::Enter<&Sessions>();
  if (call.failed()) return Error{call.error()};
  std::vector<Session> sessions;
  for (const auto& session : Machine().sessions.all) sessions.push_back({session.id, session.state});
  sessions.resize(call.Shortened(sessions.size()));
  return sessions;
}

Result<std::uint32_t> OwnSession() {
  if (const auto call = sim::Enter<&OwnSession>(); call.failed()) return Error{call.error()};
  return Machine().sessions.own;
}

std::optional<std::uint32_t> ConsoleSession() {
  if (sim::Enter<&ConsoleSession>().failed()) return std::nullopt;
  return Machine().sessions.console;
}

void CloseToken(TokenHandle token) noexcept {
  if (sim::IsOn()) Machine().sessions.Close(token);
}

Result<Token> SessionUserToken(std::uint32_t sessionId) {
  if (const auto call = sim::Enter<&SessionUserToken>(); call.failed()) return Error{call.error()};
  return Machine().sessions.UserToken(sessionId);
}

Result<Token> OwnToken() {
  if (const auto call = sim::Enter<&OwnToken>(); call.failed()) return Error{call.error()};
  return Machine().sessions.OwnToken();
}

Status EnablePrivilege(const Token& token, const wchar_t* privilege) {
  if (const auto call = sim::Enter<&EnablePrivilege>(); call.failed()) return Error{call.error()};
  return Machine().sessions.EnablePrivilege(token.get(), privilege);
}

bool RunsAsSystem() {
  return sim::Enter<&RunsAsSystem>().failed() || Machine().sessions.runsAsSystem;
}

Status Impersonate(const Token& token) {
  if (const auto call = sim::Enter<&Impersonate>(); call.failed()) return Error{call.error()};
  return Machine().sessions.Impersonate(token.get());
}

void RevertToOwnRights() noexcept {
  if (sim::IsOn()) Machine().sessions.Revert();
}

void DestroyEnvironment(EnvironmentHandle environment) noexcept {
  if (sim::IsOn()) Machine().sessions.Close(environment);
}

Result<Environment> CreateEnvironment(const Token& token) {
  if (const auto call = sim::Enter<&CreateEnvironment>(); call.failed()) return Error{call.error()};
  return Machine().sessions.CreateEnvironment(token.get());
}

}  // namespace os

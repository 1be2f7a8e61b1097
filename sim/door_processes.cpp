#include "os/processes.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine, sim::ProcessAccess;

bool AsUser() {
  return Machine().sessions.ActingAs().has_value();
}

}  // namespace

// ---- Programs and processes ----

void CloseProcess(ProcessHandle process) noexcept {
  if (sim::IsOn()) Machine().processes.Close(process);
}

Result<Process> StartAsUser(const Token& token, const std::wstring& program, const std::wstring& commandLine,
                            const Environment& environment, const wchar_t* desktop) {
  if (const auto call = sim::Enter<&StartAsUser>(); call.failed()) return Error{call.error()};
  auto& laptop = Machine();
  const auto session = laptop.sessions.SessionOf(token.get());
  const auto environmentSession = laptop.sessions.SessionOf(environment.get());
  if (!session || !environmentSession) return Error{sim::kInvalidHandle};
  return laptop.processes.Start({program, commandLine, desktop, *session, *environmentSession});
}

ProcessWait WaitForProcess(const Process& process, std::uint32_t timeoutMs) {
  if (const auto call = sim::Enter<&WaitForProcess>(); call.failed()) return {WaitOutcome::Failed, call.error()};
  auto& laptop = Machine();
  if (!laptop.processes.HasEnded(process.get())) return {WaitOutcome::Failed, sim::kInvalidHandle};
  const auto ended = [&] { return laptop.processes.HasEnded(process.get()).value_or(true); };
  return {laptop.scheduler.WaitUntil(ended, laptop.scheduler.DeadlineIn(timeoutMs)) ? WaitOutcome::Ended
                                                                                    : WaitOutcome::TimedOut};
}

std::optional<std::uint32_t> ProcessExitCode(const Process& process) {
  if (sim::Enter<&ProcessExitCode>().failed()) return std::nullopt;
  return Machine().processes.ExitCode(process.get());
}

std::wstring ProcessImagePath(std::uint32_t processId) {
  if (sim::Enter<&ProcessImagePath>().failed()) return {};
  return Machine().processes.ImagePath(processId, AsUser()).substr(0, 259);
}

// ---- Programs of other processes ----

Result<Process> OpenToAwaitIdle(std::uint32_t processId) {
  if (const auto call = sim::Enter<&OpenToAwaitIdle>(); call.failed()) return Error{call.error()};
  return Machine().processes.Open(processId, ProcessAccess::Query, AsUser());
}

void AwaitInputIdle(const Process& process, std::uint32_t timeoutMs) {
  if (sim::Enter<&AwaitInputIdle>().failed()) return;
  auto& laptop = Machine();
  const auto id = laptop.processes.IdOf(process.get());
  if (id) laptop.desktop.AwaitIdle(*id, laptop.scheduler.NowMs() + timeoutMs);
}

Result<Process> OpenToEnd(std::uint32_t processId) {
  if (const auto call = sim::Enter<&OpenToEnd>(); call.failed()) return Error{call.error()};
  return Machine().processes.Open(processId, ProcessAccess::End, AsUser());
}

Status TerminateProcess(const Process& process, std::uint32_t exitCode) {
  if (const auto call = sim::Enter<&TerminateProcess>(); call.failed()) return Error{call.error()};
  return Machine().processes.End(process.get(), exitCode);
}

Result<ProcessPackage> QueryProcessPackage(std::uint32_t processId) {
  if (const auto call = sim::Enter<&QueryProcessPackage>(); call.failed()) return Error{call.error()};
  return Machine().processes.PackageOf(processId, AsUser());
}

std::vector<std::wstring> ProductNames(const std::wstring& path) {
  const auto call = sim::Enter<&ProductNames>();
  if (call.failed()) return {};
  auto names = Machine().files.ProductNames(path, AsUser());
  for (auto& name : names) name = name.substr(0, 259);
  names.resize(call.Shortened(names.size()));
  return names;
}

Result<std::vector<std::wstring>> RunningPrograms() {
  if (const auto call = sim::Enter<&RunningPrograms>(); call.failed()) return Error{call.error()};
  return Machine().processes.RunningPrograms();
}

// ---- Packaged applications ----

Status JoinCom() {
  if (const auto call = sim::Enter<&JoinCom>(); call.failed()) return Error{call.error()};
  Machine().apps.JoinCom();
  return Done{};
}

void ReleaseActivation(ActivationHandle manager) noexcept {
  if (sim::IsOn()) Machine().apps.Release(manager);
}

Result<ActivationManager> CreateActivationManager() {
  if (const auto call = sim::Enter<&CreateActivationManager>(); call.failed()) return Error{call.error()};
  return Machine().apps.CreateManager();
}

Status ActivateApplication(const ActivationManager& manager, const std::wstring& appUserModelId,
                           const std::wstring& argument) {
  if (const auto call = sim::Enter<&ActivateApplication>(); call.failed()) return Error{call.error()};
  return Machine().apps.Activate(manager.get(), appUserModelId, argument);
}

std::int64_t ShellOpenNothing() {
  const auto call = sim::Enter<&ShellOpenNothing>();
  return call.failed() ? static_cast<std::int64_t>(call.error()) : Machine().apps.shellAnswer;
}

}  // namespace os

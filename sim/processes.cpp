#include "sim/processes.h"

#include <algorithm>
#include <utility>

#include "sim/system_errors.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::uint32_t kStillActive = 259;  // STILL_ACTIVE

bool MayOpen(ProcessOwner owner, ProcessAccess access, bool asUser) {
  if (!asUser) return owner != ProcessOwner::Protected;
  return owner == ProcessOwner::User || (owner == ProcessOwner::Elevated && access == ProcessAccess::Query);
}

}  // namespace

Program& Processes::operator[](const std::wstring& fileName) {
  return programs_[Lower(fileName)];
}

void Processes::Remove(const std::wstring& fileName) {
  programs_.erase(Lower(fileName));
}

std::size_t Processes::StartsOf(const std::wstring& fileName) const {
  return static_cast<std::size_t>(std::count_if(starts_.begin(), starts_.end(), [&](const ProgramStart& start) {
    return Lower(FileName(start.program)) == Lower(fileName);
  }));
}

std::uint32_t Processes::Run(const std::wstring& path) {
  lastId_ += 4;
  running_[lastId_] = {.path = path};
  return lastId_;
}

void Processes::End(std::uint32_t processId, std::uint32_t exitCode) {
  const auto found = running_.find(processId);
  if (found == running_.end()) return;
  const auto fileName = FileName(found->second.path);
  running_.erase(found);
  exitCodes_[processId] = exitCode;
  if (then_) then_(processId);
  management_.ProcessStopped(fileName);
}

void Processes::GiveTo(std::uint32_t processId, ProcessOwner owner) {
  running_.at(processId).owner = owner;
}

std::uint32_t Processes::IdOf(const std::wstring& path) const {
  for (const auto& [id, process] : running_) {
    if (Lower(process.path) == Lower(path)) return id;
  }
  return 0;
}

os::Result<os::Process> Processes::Door::Start(ProgramStart start) {
  const auto found = programs_.find(Lower(FileName(start.program)));
  const auto path = start.program;
  starts_.push_back(std::move(start));
  if (found == programs_.end()) return os::Error{kFileNotFound};
  Program& program = found->second;
  if (program.error != 0) return os::Error{program.error};

  const auto id = Run(path);
  auto exitCode = program.exitCode;
  if (!program.first.empty()) {
    exitCode = program.first.front();
    program.first.pop_front();
  }
  if (!program.neverEnds) scheduler_.After(program.runMs, [=, this] { End(id, exitCode); });
  if (program.onStart) program.onStart();
  return os::Process(handles_.Open({.processId = id}));
}

std::optional<bool> Processes::Door::HasEnded(os::ProcessHandle handle) {
  const auto id = IdOf(handle);
  if (!id) return std::nullopt;
  return !running_.contains(*id);
}

std::optional<std::uint32_t> Processes::Door::ExitCode(os::ProcessHandle handle) {
  const auto ended = HasEnded(handle);
  if (!ended) return std::nullopt;
  return *ended ? exitCodes_[*IdOf(handle)] : kStillActive;
}

// ---- Programs that the controller did not start ----

std::uint32_t Processes::WhyNotOpen(std::uint32_t processId, ProcessAccess access, bool asUser) const {
  const auto found = running_.find(processId);
  if (found == running_.end()) return kInvalidParameter;
  return MayOpen(found->second.owner, access, asUser) ? 0 : kAccessDenied;
}

os::Result<os::Process> Processes::Door::Open(std::uint32_t processId, ProcessAccess access, bool asUser) {
  if (const auto error = WhyNotOpen(processId, access, asUser); error != 0) return os::Error{error};
  return os::Process(handles_.Open({.processId = processId, .mayEnd = access == ProcessAccess::End}));
}

std::optional<std::uint32_t> Processes::Door::IdOf(os::ProcessHandle handle) {
  const auto* opened = handles_.Find(handle);
  return opened == nullptr ? std::nullopt : std::optional(opened->processId);
}

os::Status Processes::Door::End(os::ProcessHandle handle, std::uint32_t exitCode) {
  const auto* opened = handles_.Find(handle);
  if (opened == nullptr) return os::Error{kInvalidHandle};
  if (!opened->mayEnd || !running_.contains(opened->processId)) return os::Error{kAccessDenied};
  endedByController_.push_back(running_.at(opened->processId).path);
  End(opened->processId, exitCode);
  return os::Done{};
}

void Processes::SetPackage(const std::wstring& program, Package package) {
  packages_[Lower(program)] = std::move(package);
}

os::Result<os::ProcessPackage> Processes::Door::PackageOf(std::uint32_t processId, bool asUser) const {
  if (const auto error = WhyNotOpen(processId, ProcessAccess::Query, asUser); error != 0) return os::Error{error};
  const auto found = packages_.find(Lower(running_.at(processId).path));
  if (found == packages_.end()) return os::ProcessPackage{os::Error{os::kNoApplication}, {}, {}, {}};
  const auto& [appUserModelId, fullName, familyName, path] = found->second;
  return os::ProcessPackage{appUserModelId, fullName, familyName, path};
}

std::vector<std::wstring> Processes::Door::RunningPrograms() const {
  std::vector<std::wstring> names;
  for (const auto& [id, process] : running_) names.push_back(FileName(process.path));
  return names;
}

std::wstring Processes::Door::ImagePath(std::uint32_t processId, bool asUser) const {
  return WhyNotOpen(processId, ProcessAccess::Query, asUser) == 0 ? running_.at(processId).path : L"";
}

}  // namespace sim

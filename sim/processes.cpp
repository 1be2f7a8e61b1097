#include "sim/processes.h"

#include <algorithm>
#include <utility>

#include "sim/laptop.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::uint32_t kFileNotFound = 2;   // ERROR_FILE_NOT_FOUND
constexpr std::uint32_t kStillActive = 259;  // STILL_ACTIVE

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

void Processes::End(std::uint32_t processId) {
  running_.erase(processId);
}

void Processes::Protect(std::uint32_t processId) {
  running_.at(processId).mayBeAsked = false;
}

std::uint32_t Processes::IdOf(const std::wstring& path) const {
  for (const auto& [id, process] : running_) {
    if (Lower(process.path) == Lower(path)) return id;
  }
  return 0;
}

os::Result<os::Process> Processes::Start(ProgramStart start) {
  const auto found = programs_.find(Lower(FileName(start.program)));
  const auto path = start.program;
  starts_.push_back(std::move(start));
  if (found == programs_.end()) return os::Error{kFileNotFound};
  Program& program = found->second;
  if (program.error != 0) return os::Error{program.error};

  Started started{.processId = Run(path), .endsAtMs = {}, .exitCode = program.exitCode};
  if (!program.first.empty()) {
    started.exitCode = program.first.front();
    program.first.pop_front();
  }
  if (!program.neverEnds) {
    auto& laptop = Machine();
    started.endsAtMs = laptop.NowMs() + program.runMs;
    laptop.After(program.runMs, [this, id = started.processId] { End(id); });
  }
  if (program.onStart) program.onStart();
  return os::Process(handles_.Open(started));
}

std::optional<bool> Processes::HasEnded(os::ProcessHandle handle) {
  const auto* started = handles_.Find(handle);
  if (started == nullptr) return std::nullopt;
  return started->endsAtMs && *started->endsAtMs <= Machine().NowMs();
}

std::optional<std::uint32_t> Processes::ExitCode(os::ProcessHandle handle) {
  const auto ended = HasEnded(handle);
  if (!ended) return std::nullopt;
  return *ended ? handles_.Find(handle)->exitCode : kStillActive;
}

std::wstring Processes::ImagePath(std::uint32_t processId) const {
  const auto found = running_.find(processId);
  return found != running_.end() && found->second.mayBeAsked ? found->second.path : L"";
}

}  // namespace sim

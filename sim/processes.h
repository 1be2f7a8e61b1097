#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/processes.h"
#include "sim/handle_table.h"
#include "sim/management.h"
#include "sim/scheduler.h"

namespace sim {

/// How a program behaves that the controller may start.
struct Program {
  std::uint32_t exitCode = 0;
  std::uint32_t runMs = 20;  // how long it runs
  bool neverEnds = false;
  std::uint32_t error = 0;               // other than 0: it cannot be started, with this system error code
  std::deque<std::uint32_t> first = {};  // exit codes of its first runs, before `exitCode` holds
  std::function<void()> onStart = {};    // what it does to the laptop; must not wait
};

/// One program start, as it was asked for.
struct ProgramStart {
  std::wstring program, commandLine, desktop;
  std::uint32_t session = 0;             // of the token it was started with
  std::uint32_t environmentSession = 0;  // of the user whose environment it was given
};

/// The package that a program came in.
struct Package {
  std::wstring appUserModelId, fullName, familyName, path;
};

/// Whose a process is. The user may open his own and, to see what they are, those that he started as administrator;
/// the system may open all but protected ones.
enum class ProcessOwner { User, Elevated, System, AnotherUser, Protected };

/// What a process is opened for.
enum class ProcessAccess { Query, End };

/// The running processes, the programs that can be started and what was started.
class Processes {
 public:
  class Door;

  Processes(Scheduler& scheduler, Management& management) : scheduler_(scheduler), management_(management) {}

  /// What else happens when a process ends, before anybody is told of it.
  void WhenOneEnds(std::function<void(std::uint32_t processId)> then) { then_ = std::move(then); }

  /// The programs that can be started, by file name ("NorvTessaviewCheck.exe"). A name not in here is not found.
  Program& operator[](const std::wstring& fileName);
  void Remove(const std::wstring& fileName);

  [[nodiscard]] const std::vector<ProgramStart>& Starts() const { return starts_; }
  /// How often a program was started, by file name.
  [[nodiscard]] std::size_t StartsOf(const std::wstring& fileName) const;

  /// A process that was there before or came by itself; returns its id.
  std::uint32_t Run(const std::wstring& path);
  /// Ends a process where it stands; its windows close.
  void End(std::uint32_t processId, std::uint32_t exitCode = 0);
  /// Says whose a process is; another's tells nothing of its program, and cannot be ended.
  void GiveTo(std::uint32_t processId, ProcessOwner owner);
  void Protect(std::uint32_t processId) { GiveTo(processId, ProcessOwner::Protected); }
  /// Says what package a program belongs to, by its path; others are desktop programs.
  void SetPackage(const std::wstring& program, Package package);
  /// The id of a running process of this program; 0 when there is none.
  [[nodiscard]] std::uint32_t IdOf(const std::wstring& path) const;

  [[nodiscard]] std::size_t OpenHandles() const { return handles_.size(); }
  /// The programs whose processes the controller ended.
  [[nodiscard]] const std::vector<std::wstring>& EndedByController() const { return endedByController_; }

 private:
  struct Running {
    std::wstring path;
    ProcessOwner owner = ProcessOwner::User;
  };
  struct Opened {
    std::uint32_t processId = 0;
    bool mayEnd = true;
  };
  [[nodiscard]] std::uint32_t WhyNotOpen(std::uint32_t processId, ProcessAccess access, bool asUser) const;

  Scheduler& scheduler_;
  Management& management_;
  std::function<void(std::uint32_t)> then_;
  std::uint32_t lastId_ = 4240;
  std::map<std::uint32_t, Running> running_;
  std::map<std::uint32_t, std::uint32_t> exitCodes_;
  std::map<std::wstring, Package> packages_;  // by program
  std::map<std::wstring, Program> programs_;
  std::vector<ProgramStart> starts_;
  std::vector<std::wstring> endedByController_;
  HandleTable<os::ProcessHandle, Opened> handles_;
};

/// `asUser`: for a thread that acts with the user's rights.
class Processes::Door : public Processes {
 public:
  using Processes::End, Processes::IdOf;
  using Processes::Processes;

  os::Result<os::Process> Start(ProgramStart start);
  os::Result<os::Process> Open(std::uint32_t processId, ProcessAccess access, bool asUser);
  os::Status End(os::ProcessHandle handle, std::uint32_t exitCode);
  /// The process of a handle; nothing when the handle is not open.
  [[nodiscard]] std::optional<std::uint32_t> IdOf(os::ProcessHandle handle);
  os::Result<os::ProcessPackage> PackageOf(std::uint32_t processId, bool asUser) const;
  /// Whether the process of a handle has ended; nothing when the handle is not open.
  [[nodiscard]] std::optional<bool> HasEnded(os::ProcessHandle handle);
  [[nodiscard]] std::optional<std::uint32_t> ExitCode(os::ProcessHandle handle);
  /// The file names of all running programs.
  [[nodiscard]] std::vector<std::wstring> RunningPrograms() const;
  [[nodiscard]] std::wstring ImagePath(std::uint32_t processId, bool asUser) const;
  void Close(os::ProcessHandle handle) noexcept { handles_.Close(handle); }
  void EndProcess() { handles_.CloseAll(); }
};

}  // namespace sim

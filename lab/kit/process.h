#pragma once

#include <windows.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "kit/journal.h"

namespace lab {

/// A program that the lab started. Ended by force, if it still runs, when this goes.
class ChildProcess {
 public:
  ChildProcess() = default;

  /// Starts a program (CreateProcessW). With a `patch`, that DLL is loaded into it before its first instruction runs.
  /// An unstarted one when that fails, the reason on standard error.
  static ChildProcess Start(const std::wstring& program, const std::wstring& arguments = {},
                            const std::wstring& patch = {});

  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&& other) noexcept;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() { Kill(); }

  explicit operator bool() const { return process_ != nullptr; }
  [[nodiscard]] std::uint32_t id() const { return process_ == nullptr ? 0 : GetProcessId(process_); }
  [[nodiscard]] bool IsRunning() const;

  /// The exit code once the program has ended; empty when it has not in time.
  [[nodiscard]] std::optional<std::uint32_t> WaitForExit(std::chrono::milliseconds patience = kPatience) const;

  /// Its open handles (NtQuerySystemInformation); 0 when the system does not say.
  [[nodiscard]] std::uint32_t HandleCount() const;

  /// Ends it by force, if it runs, and waits until it is gone.
  void Kill();

 private:
  explicit ChildProcess(HANDLE process) : process_(process) {}

  HANDLE process_ = nullptr;
};

/// Loads a DLL into a process, suspended or not (CreateRemoteThread of LoadLibraryW), and waits for it; false when that
/// fails.
bool LoadInto(HANDLE process, const std::wstring& dll);

/// The folder that the lab's programs are installed in, with a backslash at its end.
[[nodiscard]] std::wstring LabFolder();

}  // namespace lab

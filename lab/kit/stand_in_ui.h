#pragma once

#include <cstdint>
#include <string>

#include "kit/process.h"

namespace lab {

/// The user-facing application's stand-in: a process of its own with the UI's window on the C panel.
class StandInUi {
 public:
  /// Starts it and waits for its window.
  bool Start();

  [[nodiscard]] static bool IsThere();

  /// Has it send the controller a command, the number in the record's handle field; true when the controller took it.
  static bool Send(const std::wstring& command, std::uint64_t number = 0);

  /// The same, sent by a second process of the UI's program: "BLSET 50".
  static bool SendByCommandLine(const std::wstring& commandAndNumber);

  void End() { process_.Kill(); }

 private:
  ChildProcess process_;
};

}  // namespace lab

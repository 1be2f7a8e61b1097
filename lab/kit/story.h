#pragma once

#include <cstddef>
#include <mutex>
#include <string>

namespace lab {

/// Tells what happens, line by line, on standard output and on the laptop's B panel, and keeps count of what went
/// wrong. Any thread.
class Story {
 public:
  /// A heading: what the story does next.
  void Chapter(const std::wstring& title);

  /// One thing that happened: who did it and what.
  void Tell(const std::wstring& who, const std::wstring& what);

  /// Something that must hold now; a false one is told as such and counts as a failure. Returns `holds`.
  bool Check(bool holds, const std::wstring& what);

  [[nodiscard]] std::size_t checks() const { return checks_; }
  [[nodiscard]] std::size_t failures() const { return failures_; }

 private:
  void Print(const std::wstring& line);

  std::mutex mutex_;
  std::size_t checks_ = 0, failures_ = 0;
};

}  // namespace lab

#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace lab {

/// Whether a line of one of the laptop's journals is worth a line in the story; the rest goes to the log alone.
[[nodiscard]] bool IsTelling(std::wstring_view who, std::wstring_view line);

/// Everything that happened, telling or not, in the file that the environment variable LAB_LOG names as a Linux path.
/// One thread at a time.
class Log {
 public:
  Log();
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  ~Log();

  void Write(const std::wstring& who, const std::wstring& line);

 private:
  std::FILE* file_ = nullptr;
};

}  // namespace lab

#pragma once

#include <cstdio>
#include <mutex>
#include <string>

namespace lab {

/// A file with everything that happens: who, and what. Each line is in it at once. Any thread.
class Log {
 public:
  Log() = default;
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;
  ~Log() { End(); }

  /// Begins a file, named by its Linux path, anew; what is written before there is one is lost.
  void Begin(const std::wstring& linuxPath);

  void Write(const std::wstring& who, const std::wstring& line);

  void End();

 private:
  std::mutex mutex_;
  std::FILE* file_ = nullptr;
};

}  // namespace lab

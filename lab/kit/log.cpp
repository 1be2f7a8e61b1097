#include "kit/log.h"

#include <utility>

namespace lab {

void Log::Begin(const std::wstring& linuxPath) {
  End();
  const std::lock_guard lock(mutex_);
  file_ = _wfopen((L"Z:" + linuxPath).c_str(), L"w, ccs=UTF-8");
}

void Log::Write(const std::wstring& who, const std::wstring& line) {
  const std::lock_guard lock(mutex_);
  if (file_ == nullptr) return;
  std::fwprintf(file_, L"%-12ls%ls%ls", who.c_str(), line.c_str(), line.ends_with(L'\n') ? L"" : L"\n");
  std::fflush(file_);
}

void Log::End() {
  const std::lock_guard lock(mutex_);
  if (file_ != nullptr) std::fclose(std::exchange(file_, nullptr));
}

}  // namespace lab

#include "os/clock.h"

#include "os/win32/win32_support.h"

namespace os {

std::uint64_t NowMs() {
  return GetTickCount64();
}

std::uint64_t SystemFileTime() {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  return static_cast<std::uint64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
}

void Sleep(std::uint32_t ms) {
  ::Sleep(ms);
}

}  // namespace os

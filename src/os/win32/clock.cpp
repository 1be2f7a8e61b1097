#include "os/clock.h"

#include "os/win32/win32_support.h"

namespace os {

std::uint64_t NowMs() {
  return GetTickCount64();
}

void Sleep(std::uint32_t ms) {
  ::Sleep(ms);
}

}  // namespace os

// Long pauses. Nobody watches a test for five minutes.
#include <windows.h>

#include <algorithm>

#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

void WINAPI SleepLess(DWORD milliseconds) {
  constexpr DWORD kLongest = 2500, kFraction = 100, kEnough = 600;
  const bool isLong = milliseconds > kLongest && milliseconds != INFINITE;
  Sleep(isLong ? std::min(milliseconds / kFraction, kEnough) : milliseconds);
}

}  // namespace

std::array<Redirection, 1> ClockCalls() {
  return {{{"Sleep", reinterpret_cast<void*>(SleepLess)}}};
}

}  // namespace lab::patch

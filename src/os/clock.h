#pragma once

#include <cstdint>

#include "os/waiting.h"

namespace os {

/// Milliseconds since the system started, never going back (GetTickCount64). Any thread; a memory read.
[[nodiscard]] std::uint64_t NowMs();

/// The date and time in 100 ns units since 1601-01-01 UTC (GetSystemTimeAsFileTime). Any thread.
[[nodiscard]] std::uint64_t SystemFileTime();

/// Blocks the calling thread for `ms` milliseconds (Sleep).
void Sleep(std::uint32_t ms);
template <>
inline constexpr WaitingMark kWaiting<&Sleep>{Waiting::Deaf};

}  // namespace os

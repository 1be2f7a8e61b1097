#pragma once

#include <cstdint>

namespace os {

/// Milliseconds since the system started, never going back (GetTickCount64). Any thread; a memory read.
[[nodiscard]] std::uint64_t NowMs();

/// Blocks the calling thread for `ms` milliseconds (Sleep).
void Sleep(std::uint32_t ms);

}  // namespace os

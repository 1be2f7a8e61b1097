#pragma once

#include <cstdint>

namespace tessaview {

// The timers of the service window.

inline constexpr std::uint64_t kUpdateTimer = 9487;      // every hour: ask the UI to look for updates
inline constexpr std::uint64_t kRetailDemoTimer = 9527;  // on a machine in a shop: bring the panel back

/// Starts the hourly update timer.
void StartUpdateTimer();

/// Starts, or starts again, the five minutes after which a machine in a shop gets its panel back.
void StartRetailDemoTimer();

}  // namespace tessaview

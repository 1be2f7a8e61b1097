#pragma once

#include <cstdint>

namespace tessaview {

// The timers of the service window. Starting one that runs starts it again.

inline constexpr std::uint64_t kUpdateTimer = 9487;           // every hour: ask the UI to look for updates
inline constexpr std::uint64_t kRetailDemoTimer = 9527;       // on a machine in a shop: bring the panel back
inline constexpr std::uint64_t kRetailDemoCloneTimer = 9528;  // there: extend a duplicated desktop
inline constexpr std::uint64_t kDesktopTimer = 9530;          // while the user is not at the desktop: look again

/// Every hour.
void StartUpdateTimer();

/// The five minutes after which a machine in a shop gets its panel back.
void StartRetailDemoTimer();
void StopRetailDemoTimer();

/// The three minutes after which it extends a duplicated desktop.
void StartRetailDemoCloneTimer();
void StopRetailDemoCloneTimer();

/// Every 100 ms.
void StartDesktopTimer();
void StopDesktopTimer();

}  // namespace tessaview

#pragma once

#include <cstdint>
#include <limits>

namespace tessaview {

/// Truncates toward zero; what does not fit becomes the nearest number that does, and no number at all becomes 0.
constexpr std::int32_t TruncateToInt32(double value) {
  constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr auto kHighest = std::numeric_limits<std::int32_t>::max();
  if (value != value) return 0;
  if (value <= kLowest) return kLowest;
  if (value >= kHighest) return kHighest;
  return static_cast<std::int32_t>(value);
}

}  // namespace tessaview

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

#include "os/types.h"

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

/// Writes an unsigned number to bytes, little-endian.
template <class Unsigned>
constexpr void PutLittleEndian(std::uint8_t* bytes, Unsigned value) {
  for (std::size_t i = 0; i < sizeof value; ++i) bytes[i] = static_cast<std::uint8_t>(value >> 8 * i & 0xFF);
}

/// Reads an unsigned number that begins at `offset`, little-endian. The bytes must be there.
template <class Unsigned>
constexpr Unsigned GetLittleEndian(os::BytesView bytes, std::size_t offset) {
  Unsigned value = 0;
  for (std::size_t i = 0; i < sizeof value; ++i) {
    value = static_cast<Unsigned>(value | static_cast<Unsigned>(bytes[offset + i]) << 8 * i);
  }
  return value;
}

}  // namespace tessaview

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "os/types.h"

namespace sim {

/// Numbers among bytes, the least significant byte first.
inline void PutNumber(std::span<std::uint8_t> bytes, std::size_t at, std::uint64_t value, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> 8 * i);
}

[[nodiscard]] inline std::uint64_t GetNumber(os::BytesView bytes, std::size_t at, std::size_t size) {
  std::uint64_t value = 0;
  for (std::size_t i = size; i > 0; --i) value = value << 8 | bytes[at + i - 1];
  return value;
}

/// 16 and 32 bits of it.
[[nodiscard]] inline std::uint16_t GetShort(os::BytesView bytes, std::size_t at) {
  return static_cast<std::uint16_t>(GetNumber(bytes, at, 2));
}

[[nodiscard]] inline std::uint32_t GetWord(os::BytesView bytes, std::size_t at) {
  return static_cast<std::uint32_t>(GetNumber(bytes, at, 4));
}

}  // namespace sim

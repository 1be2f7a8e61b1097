#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "os/types.h"

namespace sim {

/// What a monitor says of itself in its 128-byte identification block.
struct Edid {
  std::string manufacturer = "GEN";  // three letters A..Z
  std::uint16_t product = 0x0001;
  std::uint32_t serial = 0;
  std::optional<std::string> serialText = {};  // in a descriptor of its own, at most 13 characters
  std::uint8_t week = 1;                       // of manufacture
  std::uint16_t year = 2019;                   // 1990..2245
  std::uint16_t width = 1920, height = 1080;
  std::optional<std::uint8_t> checksum = {};  // what the last byte shall be; a spare byte makes the sum come out

  /// The block, with a correct checksum.
  [[nodiscard]] os::Bytes Encode() const;
};

}  // namespace sim

#include "sim/edid.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>

#include "sim/bytes.h"

namespace sim {
namespace {

constexpr std::size_t kSize = 128, kChecksum = kSize - 1;
constexpr std::array<std::size_t, 4> kDescriptors{54, 72, 90, 108};
constexpr std::size_t kDescriptorTag = 3, kDescriptorText = 5, kDescriptorTextSize = 13;
constexpr std::size_t kSpare = 125;  // within the last descriptor, which carries the maker's own data
constexpr std::uint8_t kSerialTag = 0xFF, kUnusedTag = 0x10, kMakerTag = 0x00;

/// Three letters of five bits each, the most significant byte first.
void PutManufacturer(os::Bytes& block, const std::string& letters) {
  std::uint32_t packed = 0;
  for (const char letter : letters) packed = packed << 5 | static_cast<std::uint32_t>(letter - 'A' + 1);
  block[8] = static_cast<std::uint8_t>(packed >> 8);
  block[9] = static_cast<std::uint8_t>(packed);
}

/// The preferred timing: pixel clock, then active and blanking sizes with their high bits apart.
void PutTiming(os::Bytes& block, std::uint32_t width, std::uint32_t height) {
  constexpr std::uint32_t kBlanking = 40;
  const auto at = kDescriptors[0];
  PutNumber(block, at, (width + kBlanking) * (height + kBlanking) * 60 / 10000, 2);
  PutNumber(block, at + 2, width, 1);
  PutNumber(block, at + 3, kBlanking, 1);
  PutNumber(block, at + 4, width >> 8 << 4, 1);
  PutNumber(block, at + 5, height, 1);
  PutNumber(block, at + 6, kBlanking, 1);
  PutNumber(block, at + 7, height >> 8 << 4, 1);
}

/// A text ends with a line feed and is filled up with blanks.
void PutSerialText(os::Bytes& block, std::size_t at, std::string text) {
  block[at + kDescriptorTag] = kSerialTag;
  if (text.size() < kDescriptorTextSize) text += '\n';
  text.resize(kDescriptorTextSize, ' ');
  std::copy(text.begin(), text.end(), block.begin() + static_cast<std::ptrdiff_t>(at + kDescriptorText));
}

std::uint8_t Negated(unsigned sum) {
  return static_cast<std::uint8_t>(0U - sum);
}

}  // namespace

os::Bytes Edid::Encode() const {
  os::Bytes block(kSize);
  std::fill(block.begin() + 1, block.begin() + 7, std::uint8_t{0xFF});
  PutManufacturer(block, manufacturer);
  PutNumber(block, 10, product, 2);
  PutNumber(block, 12, serial, 4);
  block[16] = week;
  block[17] = static_cast<std::uint8_t>(year - 1990);
  block[18] = 1;  // version 1.4 of the format
  block[19] = 4;
  PutTiming(block, width, height);
  block[kDescriptors[1] + kDescriptorTag] = kUnusedTag;
  block[kDescriptors[2] + kDescriptorTag] = kUnusedTag;
  if (serialText) PutSerialText(block, kDescriptors[2], *serialText);
  block[kDescriptors[3] + kDescriptorTag] = kMakerTag;

  const auto sum = std::accumulate(block.begin(), block.end(), 0U);
  if (checksum) block[kSpare] = Negated(sum + *checksum);
  block[kChecksum] = Negated(sum + block[kSpare]);
  return block;
}

}  // namespace sim

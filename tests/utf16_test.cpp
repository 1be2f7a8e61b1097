#include "core/utf16.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support.h"

namespace {

using namespace tessaview;
using support::BytesOf;

os::Bytes Utf16(std::wstring_view text) {
  os::Bytes bytes;
  AppendUtf16(bytes, text);
  return bytes;
}

TEST(Utf16, TextsAreLittleEndianUnits) {
  using Case = std::tuple<std::wstring, os::Bytes>;
  const Case cases[] = {
      {L"", {}},
      {L"A", BytesOf("A\0")},
      {L"\u00FF\u0100\u20AC", BytesOf("\xFF\0\0\x01\xAC\x20")},
      {L"\uFFFD", BytesOf("\xFD\xFF")},
      {L"\U00010000", BytesOf("\0\xD8\0\xDC")},  // the first and the last that take two units
      {L"\U0010FFFF", BytesOf("\xFF\xDB\xFF\xDF")},
      {L"a\U0001F5B1b", BytesOf("a\0\x3D\xD8\xB1\xDD"
                                "b\0")},
  };
  for (const auto& [text, bytes] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(Utf16(text), bytes);
    EXPECT_EQ(ReadUtf16(bytes), text);
  }
}

TEST(Utf16, ReadingStopsAtTheFirstNulOrTheEnd) {
  EXPECT_EQ(ReadUtf16(BytesOf("A\0\0\0B\0")), L"A");
  EXPECT_EQ(ReadUtf16(BytesOf("\0\0A\0")), L"");
  EXPECT_EQ(ReadUtf16(BytesOf("A\0B")), L"A") << "half a unit is none";
  EXPECT_EQ(ReadUtf16(BytesOf("A")), L"");
  EXPECT_EQ(ReadUtf16(BytesOf("\0A\0\0")), L"\u4100") << "a zero byte is not a NUL";
}

TEST(Utf16, AnyUnitsComeBackAsTheyWere) {
  // Other programs send what they like: halves of pairs, pairs the wrong way round.
  std::mt19937 generator(20240117);
  std::uniform_int_distribution<int> choice(0, 3);
  for (int run = 0; run < 500; ++run) {
    SCOPED_TRACE(run);
    os::Bytes bytes;
    for (int unit = 0; unit < 40; ++unit) {
      const auto random = static_cast<std::uint32_t>(generator());
      const std::uint32_t halves[] = {0xD800 | (random & 0x3FF), 0xDC00 | (random & 0x3FF)};
      const auto pick = static_cast<std::size_t>(choice(generator));
      const auto value = pick < 2 ? halves[pick] : std::max<std::uint32_t>(random & 0xFFFF, 1);
      bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
      bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    EXPECT_EQ(Utf16(ReadUtf16(bytes)), bytes);
  }
}

}  // namespace

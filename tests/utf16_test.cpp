#include "core/utf16.h"

#include <gtest/gtest.h>

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
      {L"\u00FF\u0100\u20AC", BytesOf("\xFF\0\0\x01\xAC\x20")},
      {L"\U00010000", BytesOf("\0\xD8\0\xDC")},  // the first and the last that take two units
      {L"\U0010FFFF", BytesOf("\xFF\xDB\xFF\xDF")},
      // Other programs send what they like: halves of pairs, pairs the wrong way round.
      {std::wstring{wchar_t{0xD83D}}, BytesOf("\x3D\xD8")},
      {std::wstring{wchar_t{0xD83D}, L'a'}, BytesOf("\x3D\xD8\x61\0")},
      {std::wstring{wchar_t{0xDDB1}, wchar_t{0xD83D}}, BytesOf("\xB1\xDD\x3D\xD8")},
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

}  // namespace

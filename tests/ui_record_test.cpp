#include "uilink/channel/ui_record.h"

#include <algorithm>

#include "core/text.h"
#include "power/settings.h"
#include "tests/support.h"
#include "uilink/commands/ui_commands.h"

namespace {

using namespace tessaview;
using namespace support;

void Overwrite(os::Bytes& bytes, std::size_t at, const os::Bytes& part) {
  std::copy(part.begin(), part.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

TEST(UiRecord, EveryFieldLiesAtItsOffset) {
  const UiMessage message{.text = L"WS\u20AC",
                          .handle = 0x11223344FFFFFFFE,
                          .rect = {1, -2, 0x01020304, -2147483647 - 1},
                          .point = {-1, 0x7FFFFFFF}};
  os::Bytes bytes(552);
  Overwrite(bytes, 0, BytesOf("W\0S\0\xAC\x20\0\0"));
  Overwrite(bytes, 520, BytesOf("\xFE\xFF\xFF\xFF\x44\x33\x22\x11"));
  Overwrite(bytes, 528, BytesOf("\x01\0\0\0\xFE\xFF\xFF\xFF\x04\x03\x02\x01\0\0\0\x80"));
  Overwrite(bytes, 544, BytesOf("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"));
  const auto record = EncodeUiMessage(message);
  EXPECT_EQ(os::Bytes(record.begin(), record.end()), bytes);

  Overwrite(bytes, 8, BytesOf("X\0"));  // what follows the NUL counts for nothing
  const auto read = DecodeUiMessage(bytes);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->text, message.text);
  EXPECT_EQ(read->handle, message.handle);
  EXPECT_EQ(read->Number(), -2);
  EXPECT_EQ(read->rect, message.rect);
  EXPECT_EQ(read->point, message.point);
}

TEST(UiRecord, HoldsTextsOfUpTo259Characters) {
  for (const std::size_t length : {0u, 259u, 260u, 5000u}) {
    const std::wstring text(length, L'\u20AC');
    const auto record = EncodeUiMessage({.text = text, .handle = 1});
    EXPECT_EQ(DecodeUiMessage(record)->text, text.substr(0, 259));
  }
  EXPECT_EQ(DecodeUiMessage(os::Bytes(552, 0x41))->text, std::wstring(260, L'\u4141')) << "read without a NUL, too";
  EXPECT_EQ(DecodeFileCopy(os::Bytes(1560, 0x41))->inputPath, std::wstring(260, L'\u4141'));
}

TEST(UiRecord, OnlyWholeRecordsOfTheirKindAreRead) {
  for (const std::size_t size : {0u, 520u, 551u, 552u, 553u, 1559u, 1560u, 1561u}) {
    EXPECT_EQ(DecodeUiMessage(os::Bytes(size)).has_value(), size == 552) << size;
    EXPECT_EQ(DecodeFileCopy(os::Bytes(size)).has_value(), size == 1560) << size;
  }
  RunningLaptop laptop;
  const auto command = EncodeUiMessage({.text = L"POWERSAVEROFF"});
  for (const std::uint64_t kind : {101ULL, 104ULL, 0x1'0000'0066ULL, 102ULL}) {
    laptop.ui.SendRaw(kind, os::Bytes(command.begin(), command.end()));
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), kind == 102 ? L"0" : L"1") << kind;
  }
}

TEST(Utf16, TextsAreLittleEndianUnits) {
  for (const auto& [text, bytes] :
       {std::pair<std::wstring, os::Bytes>{L"\u00FF\u0100\u20AC", BytesOf("\xFF\0\0\x01\xAC\x20")},
        {L"\U00010000\U0010FFFF", BytesOf("\0\xD8\0\xDC\xFF\xDB\xFF\xDF")},  // the first and the last of two units
        // Other programs send what they like: halves of pairs, pairs the wrong way round.
        {std::wstring{wchar_t{0xD83D}, L'a'}, BytesOf("\x3D\xD8\x61\0")},
        {std::wstring{wchar_t{0xDDB1}, wchar_t{0xD83D}}, BytesOf("\xB1\xDD\x3D\xD8")}}) {
    os::Bytes written;
    AppendUtf16(written, text);
    EXPECT_EQ(written, bytes);
    EXPECT_EQ(ReadUtf16(bytes), text);
  }
}

TEST(Utf16, ReadingStopsAtTheFirstNulOrTheEnd) {
  EXPECT_EQ(ReadUtf16(BytesOf("A\0\0\0B\0")), L"A");
  EXPECT_EQ(ReadUtf16(BytesOf("A\0B")), L"A") << "half a unit is none";
  EXPECT_EQ(ReadUtf16(BytesOf("\0A\0\0")), L"\u4100") << "a zero byte is not a NUL";
}

}  // namespace

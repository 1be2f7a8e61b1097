#include "uilink/ui_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/settings.h"
#include "tests/support.h"
#include "uilink/ui_commands.h"

namespace {

using namespace tessaview;
using support::BytesOf;
using support::RunningLaptop;

os::Bytes Part(os::BytesView bytes, std::size_t from, std::size_t size) {
  const auto part = bytes.subspan(from, size);
  return {part.begin(), part.end()};
}

void Overwrite(os::Bytes& bytes, std::size_t at, const os::Bytes& part) {
  std::copy(part.begin(), part.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
}

// ---- The text message ----

TEST(UiRecord, EveryFieldLiesAtItsOffset) {
  const auto record = EncodeUiMessage({.text = L"WS\u20AC",
                                       .handle = 0x1122334455667788,
                                       .rect = {1, -2, 0x01020304, -2147483647 - 1},
                                       .point = {-1, 0x7FFFFFFF}});
  ASSERT_EQ(record.size(), 552u);
  EXPECT_EQ(Part(record, 0, 8), BytesOf("W\0S\0\xAC\x20\0\0"));
  EXPECT_EQ(Part(record, 8, 512), os::Bytes(512)) << "nothing follows the text";
  EXPECT_EQ(Part(record, 520, 8), BytesOf("\x88\x77\x66\x55\x44\x33\x22\x11"));
  EXPECT_EQ(Part(record, 528, 16), BytesOf("\x01\0\0\0\xFE\xFF\xFF\xFF\x04\x03\x02\x01\0\0\0\x80"));
  EXPECT_EQ(Part(record, 544, 8), BytesOf("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"));
  const auto blank = EncodeUiMessage({});
  EXPECT_EQ(os::Bytes(blank.begin(), blank.end()), os::Bytes(552));
}

TEST(UiRecord, EveryFieldIsReadFromItsOffset) {
  os::Bytes record(552);
  Overwrite(record, 0, BytesOf("U\0P\0\0\0X\0"));
  Overwrite(record, 520, BytesOf("\xFE\xFF\xFF\xFF\x01\0\0\0"));
  Overwrite(record, 528, BytesOf("\x01\0\0\0\xFE\xFF\xFF\xFF\x03\0\0\0\x04\x01\0\0"));
  Overwrite(record, 544, BytesOf("\0\0\0\x80\x80\x07\0\0"));
  const auto message = DecodeUiMessage(record);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->text, L"UP");
  EXPECT_EQ(message->handle, 0x1'FFFF'FFFEu);
  EXPECT_EQ(message->Number(), -2);
  EXPECT_EQ(static_cast<std::uint64_t>(message->Window()), 0x1'FFFF'FFFEu);
  EXPECT_EQ(message->rect, (os::Rect{1, -2, 3, 260}));
  EXPECT_EQ(message->point, (os::Point{-2147483647 - 1, 1920}));
}

TEST(UiRecord, HoldsTextsOfUpTo259Characters) {
  for (const std::size_t length : {0u, 1u, 258u, 259u, 260u, 261u, 5000u}) {
    SCOPED_TRACE(length);
    const std::wstring text(length, L'\u20AC');
    const auto record = EncodeUiMessage({.text = text, .handle = 1});
    EXPECT_EQ(DecodeUiMessage(record)->text, text.substr(0, 259));
    EXPECT_EQ(Part(record, 518, 3), BytesOf("\0\0\x01")) << "the last character is always a NUL";
  }
}

TEST(UiRecord, ATextWithoutItsNulEndsWithItsField) {
  const os::Bytes record(552, 0x41);
  const auto message = DecodeUiMessage(record);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->text, std::wstring(260, L'\u4141'));
  EXPECT_EQ(message->point.x, 0x41414141);
}

TEST(UiRecord, OnlyWholeRecordsAreRead) {
  for (const std::size_t size : {0u, 1u, 519u, 520u, 551u, 553u, 1560u}) {
    EXPECT_FALSE(DecodeUiMessage(os::Bytes(size))) << size;
  }
  EXPECT_TRUE(DecodeUiMessage(os::Bytes(552)));
  for (const std::size_t size : {0u, 552u, 1040u, 1559u, 1561u}) EXPECT_FALSE(DecodeFileCopy(os::Bytes(size))) << size;
  EXPECT_TRUE(DecodeFileCopy(os::Bytes(1560)));
}

TEST(FileCopyRecord, HoldsThreeTextsOf260Characters) {
  os::Bytes record(1560);
  Overwrite(record, 0, BytesOf("C\0O\0\0\0"));
  std::fill(record.begin() + 520, record.begin() + 1040, std::uint8_t{0x42});
  Overwrite(record, 1040, BytesOf("D\0:\0"));
  const auto message = DecodeFileCopy(record);
  ASSERT_TRUE(message);
  EXPECT_EQ(message->command, L"CO");
  EXPECT_EQ(message->inputPath, std::wstring(260, L'\u4242'));
  EXPECT_EQ(message->outputPath, L"D:");
}

// ---- What other programs may send ----

TEST(CopyData, RecordsOfAWrongKindOrSizeDoNothing) {
  RunningLaptop laptop;
  const auto command = EncodeUiMessage({.text = L"POWERSAVEROFF"});
  const os::Bytes whole(command.begin(), command.end());
  auto tooLong = whole;
  tooLong.push_back(0);
  const os::Bytes shorter(whole.begin(), whole.end() - 1);

  struct Case {
    std::uint64_t kind;
    os::Bytes record;
  };
  for (const auto& c : {Case{102, {}}, Case{102, shorter}, Case{102, tooLong}, Case{101, whole}, Case{103, whole},
                        Case{104, whole}, Case{0, whole}, Case{0x1'0000'0066, whole}, Case{105, {}}}) {
    SCOPED_TRACE(testing::Message() << "kind " << c.kind << ", " << c.record.size() << " bytes");
    laptop.ui.SendRaw(c.kind, c.record);
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), L"1");
  }
  EXPECT_FALSE(laptop.trace.Contains(L"Receivedata from UI = POWERSAVEROFF \n"));

  laptop.ui.SendRaw(102, whole);
  EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), L"0");
}

class RandomRecords {
 public:
  explicit RandomRecords(std::uint32_t seed) : generator_(seed) {}

  std::uint64_t Kind() { return Below(2) == 0 ? 102 : Below(2) == 0 ? 104 : Below(2) == 0 ? Below(200) : generator_(); }

  /// Random bytes of a likely or random length; most begin with a command, whole or damaged.
  os::Bytes Record() {
    const std::size_t sizes[] = {552, 552, 552, 1560, 1560, 0, 1, 551, 553, Below(4096)};
    os::Bytes record(sizes[Below(std::size(sizes))]);
    if (Below(3) != 0) std::generate(record.begin(), record.end(), [this] { return Byte(); });
    if (Below(4) != 0) WriteCommand(record);
    if (!record.empty() && Below(4) == 0) record[Below(record.size())] = Byte();
    return record;
  }

 private:
  void WriteCommand(os::Bytes& record) {
    static constexpr std::wstring_view kCommands[] = {
        L"BLSET",         L"BLGET",           L"GETPROCESSNAME", L"POWERSAVERON",
        L"POWERSAVEROFF", L"GETFREQUENCY",    L"SETFREQUENCY",   L"DIED",
        L"ALIVE",         L"CLOSEQUICKGUIDE", L"SETRESOLUTION",  L"SETTOUCHPAD",
        L"VERSION=",      L"BLOCKACTIONMENU", L"VIEWUP",         L"",
        L"COPYWALLPAPER"};
    std::size_t at = 0;
    for (const auto character : kCommands[Below(std::size(kCommands))]) {
      if (at + 3 >= record.size()) return;
      record[at++] = static_cast<std::uint8_t>(character);
      record[at++] = 0;
    }
    if (at + 1 < record.size() && Below(8) != 0) record[at] = record[at + 1] = 0;
  }

  std::size_t Below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(generator_); }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }

  std::mt19937_64 generator_;
};

TEST(CopyData, SurvivesWhateverOtherProgramsSend) {
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    RandomRecords random(seed);
    RunningLaptop laptop;
    for (int i = 0; i < 400; ++i) laptop.ui.SendRaw(random.Kind(), random.Record());
    ASSERT_FALSE(laptop.ExitCode());
    EXPECT_TRUE(laptop.trace.Malformed().empty());
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0u);
    EXPECT_EQ(laptop.sessions.OpenTokens(), 0u);

    laptop.ui.ForgetReceived();
    laptop.ui.Send(L"BLGET");
    EXPECT_EQ(support::LastTold(laptop), L"BLSET");
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "no command changes the user's choice of power";
  }
}

}  // namespace

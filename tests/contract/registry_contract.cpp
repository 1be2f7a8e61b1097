#include <atomic>

#include "core/text.h"
#include "os/clock.h"
#include "os/registry.h"
#include "os/threads.h"
#include "os/watches.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using RegistryContract = Contract;

constexpr auto kKey = L"SOFTWARE\\NORV\\Contract", kNoKey = L"SOFTWARE\\NORV\\Contract\\NoSuchKey";
constexpr std::size_t kRoom = 40;  // bytes
const world::RegistryValue kOne{world::kDword, {1, 0, 0, 0}};

os::Bytes Utf16(const std::wstring& text) {
  os::Bytes bytes;
  tessaview::AppendUtf16(bytes, text);
  return bytes;
}

TEST_F(RegistryContract, ATextEndsAtItsNulOrAtTheValuesEnd) {
  using namespace std::string_literals;
  const auto read = [](std::uint32_t type, const os::Bytes& bytes) {
    world::SetRegistryValue(kKey, L"Id", {type, bytes});
    return os::ReadRegistryText(kKey, L"Id", kRoom);
  };
  for (const auto& [stored, text] : {std::pair(L"Panel\0"s, L"Panel"),
                                     {L"Panel"s, L"Panel"},
                                     {L"one\0two\0"s, L"one"},
                                     {L"\0"s, L""},
                                     {L""s, L""},
                                     {L"nineteen characters\0"s, L"nineteen characters"},  // fills the buffer
                                     {L"twenty characters ok"s, L"twenty characters ok"}}) {
    EXPECT_EQ(read(world::kText, Utf16(stored)), text) << testing::PrintToString(stored);
  }
  EXPECT_EQ(read(world::kText, Utf16(L"twenty characters ok\0"s)), std::nullopt) << "larger than the buffer";
  for (const auto type : {world::kBinary, world::kDword}) EXPECT_EQ(read(type, {1, 0, 0, 0}), std::nullopt);
  EXPECT_EQ(os::ReadRegistryText(kKey, L"NoSuchValue", kRoom), std::nullopt);
  EXPECT_EQ(os::ReadRegistryText(kNoKey, L"Id", kRoom), std::nullopt);
}

TEST_F(RegistryContract, BytesComeWholeAndOnlyFromABinaryValue) {
  const os::Bytes edid(300, 0xA5);
  for (const auto& bytes : {edid, os::Bytes{0, 0, 0}, os::Bytes{}}) {
    world::SetRegistryValue(kKey, L"EDID", {world::kBinary, bytes});
    EXPECT_EQ(os::ReadRegistryBytes(L"software\\norv\\CONTRACT", L"edid"), bytes) << "names have no case";
  }
  for (const auto type : {world::kText, world::kDword}) {
    world::SetRegistryValue(kKey, L"EDID", {type, {1, 0, 0, 0}});
    EXPECT_EQ(os::ReadRegistryBytes(kKey, L"EDID"), std::nullopt);
  }
  EXPECT_EQ(os::ReadRegistryBytes(kKey, L"NoSuchValue"), std::nullopt);
  EXPECT_EQ(os::ReadRegistryBytes(kNoKey, L"EDID"), std::nullopt);
}

TEST_F(RegistryContract, AWrittenTextMakesItsKeysAndReplacesWhateverWasThere) {
  world::SetRegistryValue(kKey, L"Id", kOne);
  for (const auto& place : {std::wstring(kKey), std::wstring(kKey) + L"\\Made\\Deeper"}) {
    for (const auto* text : {L"DISPLAY\\TSB8888", L""}) {
      EXPECT_TRUE(os::WriteRegistryText(place, L"Id", text));
      EXPECT_EQ(world::StoredValue(place, L"Id"),
                (world::RegistryValue{world::kText, Utf16(text + std::wstring(1, 0))}));
    }
  }
}

TEST_F(RegistryContract, NumbersAreReadByTypeAndWrittenOnlyWhereTheKeyIs) {
  const std::wstring key = kKey, missing = kNoKey;
  world::SetRegistryValue(key, L"Number", kOne);
  world::SetRegistryValue(key, L"Text", {world::kText, Utf16(L"7")});
  EXPECT_EQ(os::ReadRegistryNumber(key, L"number"), 1U);
  EXPECT_EQ(os::ReadRegistryNumber(key, L"Text"), std::nullopt);
  EXPECT_EQ(os::ReadRegistryNumber(key, L"NoSuchValue"), std::nullopt);
  EXPECT_EQ(os::ReadRegistryNumber(missing, L"Number"), std::nullopt);

  EXPECT_TRUE(os::WriteRegistryNumber(key, L"Text", 0x0102'0304));
  EXPECT_EQ(world::StoredValue(key, L"Text"), (world::RegistryValue{world::kDword, {4, 3, 2, 1}}));
  EXPECT_TRUE(os::WriteRegistryLongNumber(key, L"Stamp", 0x01D0'0000'0000'0002));
  EXPECT_EQ(world::StoredValue(key, L"Stamp"), (world::RegistryValue{world::kQword, {2, 0, 0, 0, 0, 0, 0xD0, 1}}));
  EXPECT_EQ(os::ReadRegistryNumber(key, L"Stamp"), std::nullopt) << "a longer number";
  EXPECT_EQ(os::WriteRegistryNumber(missing, L"Number", 1).error(), 2U) << "ERROR_FILE_NOT_FOUND";
  EXPECT_EQ(os::WriteRegistryLongNumber(missing, L"Number", 1).error(), 2U);
}

TEST_F(RegistryContract, SubkeysComeInAlphabeticalOrderOneLevelDeep) {
  for (const auto* name : {L"b+c^1", L"A*b^2", L"c\\00\\01"}) {
    world::SetRegistryValue(std::wstring(kKey) + L"\\List\\" + name, L"Any", kOne);
  }
  EXPECT_EQ(os::RegistrySubkeys(std::wstring(kKey) + L"\\List"), (std::vector<std::wstring>{L"A*b^2", L"b+c^1", L"c"}));
  EXPECT_TRUE(os::RegistrySubkeys(kNoKey).empty());
}

std::atomic<int> gChanges;

/// The changes told once they are `count`, and no more come.
int ChangesOnce(int count) {
  world::Run([count] {
    for (int i = 0; i < 400 && gChanges < count; ++i) os::Sleep(5);
    os::Sleep(50);
  });
  return gChanges;
}

TEST_F(RegistryContract, AWatcherIsToldOfEveryChangeBelowItsKeyAlsoWhileItIsBusy) {
  gChanges = 0;
  world::Run([] { os::WatchRegistryKey(kNoKey, [] { ++gChanges; }); });  // returns
  static const std::wstring watched = std::wstring(kKey) + L"\\Watched", below = watched + L"\\Below\\It";
  world::SetRegistryValue(below, L"Value", kOne);
  ASSERT_TRUE(os::StartThread(L"watch", [] {
    os::WatchRegistryKey(watched, [] {
      if (++gChanges == 1) EXPECT_TRUE(os::WriteRegistryNumber(below, L"Value", 2));
    });
  }));
  EXPECT_EQ(ChangesOnce(0), 0);
  EXPECT_TRUE(os::WriteRegistryNumber(below, L"Value", 3));
  EXPECT_EQ(ChangesOnce(2), 2) << "the second one came while the first was told";
  EXPECT_TRUE(os::WriteRegistryText(watched + L"Not", L"Value", L"1"));
  EXPECT_EQ(ChangesOnce(3), 2) << "none of this key's";
  EXPECT_TRUE(os::WriteRegistryText(below + L"\\New", L"Value", L"1"));
  EXPECT_GE(ChangesOnce(3), 3);
}

}  // namespace
}  // namespace contract

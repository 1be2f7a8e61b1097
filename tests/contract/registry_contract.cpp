#include "core/utf16.h"
#include "os/registry.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using RegistryContract = Contract;

constexpr auto kKey = L"SOFTWARE\\NORV\\Contract";
constexpr std::size_t kRoom = 40;  // bytes

os::Bytes Utf16(const std::wstring& text) {
  os::Bytes bytes;
  tessaview::AppendUtf16(bytes, text);
  return bytes;
}

TEST_F(RegistryContract, ATextEndsAtItsNulOrAtTheValuesEnd) {
  using namespace std::string_literals;
  const struct {
    const char* what;
    world::RegistryValue stored;
    std::optional<std::wstring> text;
  } cases[]{
      {"terminated", {world::kText, Utf16(L"Panel\0"s)}, L"Panel"},
      {"not terminated", {world::kText, Utf16(L"Panel")}, L"Panel"},
      {"two texts", {world::kText, Utf16(L"one\0two\0"s)}, L"one"},
      {"empty", {world::kText, Utf16(L"\0"s)}, L""},
      {"nothing at all", {world::kText, {}}, L""},
      {"fills the buffer", {world::kText, Utf16(L"nineteen characters\0"s)}, L"nineteen characters"},
      {"fills the buffer without a NUL", {world::kText, Utf16(L"twenty characters ok")}, L"twenty characters ok"},
      {"larger than the buffer", {world::kText, Utf16(L"twenty characters ok\0"s)}, {}},
      {"binary", {world::kBinary, Utf16(L"Panel\0"s)}, {}},
      {"a number", {world::kDword, {1, 0, 0, 0}}, {}},
  };
  for (const auto& each : cases) {
    world::SetRegistryValue(kKey, L"Id", each.stored);
    EXPECT_EQ(os::ReadRegistryText(kKey, L"Id", kRoom), each.text) << each.what;
  }
  EXPECT_EQ(os::ReadRegistryText(kKey, L"NoSuchValue", kRoom), std::nullopt);
  EXPECT_EQ(os::ReadRegistryText(L"SOFTWARE\\NORV\\NoSuchKey", L"Id", kRoom), std::nullopt);
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
  EXPECT_EQ(os::ReadRegistryBytes(L"SOFTWARE\\NORV\\NoSuchKey", L"EDID"), std::nullopt);
}

TEST_F(RegistryContract, AWrittenTextMakesItsKeysAndReplacesWhateverWasThere) {
  const std::wstring key = std::wstring(kKey) + L"\\Made\\Deeper";
  world::SetRegistryValue(kKey, L"Id", {world::kDword, {1, 0, 0, 0}});
  for (const auto& place : {std::wstring(kKey), key}) {
    for (const auto* text : {L"DISPLAY\\TSB8888", L""}) {
      EXPECT_TRUE(os::WriteRegistryText(place, L"Id", text));
      EXPECT_EQ(world::StoredValue(place, L"Id"),
                (world::RegistryValue{world::kText, Utf16(text + std::wstring(1, 0))}));
    }
  }
}

}  // namespace
}  // namespace contract

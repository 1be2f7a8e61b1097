#include <atomic>

#include "tests/contract/world.h"

namespace {

using StoresContract = contract::Contract;
using os::PathKind;

constexpr auto kKey = L"SOFTWARE\\NORV\\Contract", kNoKey = L"SOFTWARE\\NORV\\Contract\\NoSuchKey";
constexpr std::size_t kRoom = 40;  // bytes
const world::RegistryValue kOne{world::kDword, {1, 0, 0, 0}};

os::Bytes Utf16(const std::wstring& text) {
  os::Bytes bytes;
  for (const auto unit : text) bytes.insert(bytes.end(), {static_cast<std::uint8_t>(unit), 0});
  return bytes;
}

TEST_F(StoresContract, ATextEndsAtItsNulOrAtTheValuesEnd) {
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
}

TEST_F(StoresContract, BytesComeWholeAndOnlyFromABinaryValue) {
  const os::Bytes edid(300, 0xA5);
  for (const auto& bytes : {edid, os::Bytes{0, 0, 0}, os::Bytes{}}) {
    world::SetRegistryValue(kKey, L"EDID", {world::kBinary, bytes});
    EXPECT_EQ(os::ReadRegistryBytes(L"software\\norv\\CONTRACT", L"edid"), bytes) << "names have no case";
  }
  world::SetRegistryValue(kKey, L"EDID", kOne);
  EXPECT_EQ(os::ReadRegistryBytes(kKey, L"EDID"), std::nullopt);
}

TEST_F(StoresContract, AWrittenTextMakesItsKeysAndReplacesWhateverWasThere) {
  world::SetRegistryValue(kKey, L"Id", kOne);
  for (const auto& place : {std::wstring(kKey), std::wstring(kKey) + L"\\Made\\Deeper"}) {
    for (const auto* text : {L"DISPLAY\\TSB8888", L""}) {
      EXPECT_TRUE(os::WriteRegistryText(place, L"Id", text));
      EXPECT_EQ(world::StoredValue(place, L"Id"),
                (world::RegistryValue{world::kText, Utf16(text + std::wstring(1, 0))}));
    }
  }
}

TEST_F(StoresContract, NumbersAreReadByTypeAndWrittenOnlyWhereTheKeyIs) {
  const std::wstring key = kKey, missing = kNoKey;
  world::SetRegistryValue(key, L"Number", kOne);
  world::SetRegistryValue(key, L"Text", {world::kText, Utf16(L"7")});
  EXPECT_EQ(os::ReadRegistryNumber(key, L"number"), 1U);
  EXPECT_EQ(os::ReadRegistryNumber(key, L"Text"), std::nullopt);
  for (const auto& [place, value] : {std::pair(key, L"NoSuchValue"), {missing, L"Number"}}) {
    EXPECT_FALSE(os::ReadRegistryNumber(place, value) || os::ReadRegistryText(place, value, kRoom) ||
                 os::ReadRegistryBytes(place, value));
  }
  EXPECT_TRUE(os::WriteRegistryNumber(key, L"Text", 0x0102'0304));
  EXPECT_EQ(world::StoredValue(key, L"Text"), (world::RegistryValue{world::kDword, {4, 3, 2, 1}}));
  EXPECT_TRUE(os::WriteRegistryLongNumber(key, L"Stamp", 0x01D0'0000'0000'0002));
  EXPECT_EQ(world::StoredValue(key, L"Stamp"), (world::RegistryValue{world::kQword, {2, 0, 0, 0, 0, 0, 0xD0, 1}}));
  EXPECT_EQ(os::ReadRegistryNumber(key, L"Stamp"), std::nullopt) << "a longer number";
  EXPECT_EQ(os::WriteRegistryNumber(missing, L"Number", 1).error(), 2U) << "ERROR_FILE_NOT_FOUND";
  EXPECT_EQ(os::WriteRegistryLongNumber(missing, L"Number", 1).error(), 2U);
}

TEST_F(StoresContract, SubkeysComeInAlphabeticalOrderOneLevelDeep) {
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

TEST_F(StoresContract, AWatcherIsToldOfEveryChangeBelowItsKeyAlsoWhileItIsBusy) {
  gChanges = 0;
  world::Run([] { EXPECT_EQ(os::WatchRegistryKey(kNoKey, [] { ++gChanges; }).error(), 2U); });
  static const std::wstring watched = std::wstring(kKey) + L"\\Watched", below = watched + L"\\Below\\It";
  world::SetRegistryValue(below, L"Value", kOne);
  ASSERT_TRUE(os::StartThread(L"watch", [] {
    return os::WatchRegistryKey(watched, [] {
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

// ---- Files ----

TEST_F(StoresContract, APathIsAFileAFolderOrMissingAndAFolderIsMadeInAFolder) {
  const auto folder = world::Folder(), file = folder + L"\\a.txt";
  world::WriteFile(file, "text");
  for (const auto& path : {folder, folder + L"\\"}) EXPECT_EQ(os::QueryPath(path), PathKind::Directory);
  for (const auto& path : {file, folder + L"\\A.TXT", folder + L"/a.txt"})
    EXPECT_EQ(os::QueryPath(path), PathKind::File);
  for (const auto& path : {folder + L"\\b", file + L"\\", folder + L"\\b\\a.txt", std::wstring()})
    EXPECT_EQ(os::QueryPath(path), PathKind::Missing) << testing::PrintToString(path);
  EXPECT_EQ(os::QueryPath(os::OwnProgramPath()), PathKind::File);
  const auto common = os::CommonAppDataFolder();
  EXPECT_TRUE(common && common->back() != L'\\' && os::QueryPath(*common) == PathKind::Directory);
  EXPECT_EQ(os::CreateFolder(folder + L"\\new").error(), 0U);
  EXPECT_EQ(os::QueryPath(folder + L"\\new"), PathKind::Directory);
  for (const auto* there : {L"\\new", L"\\a.txt"}) EXPECT_EQ(os::CreateFolder(folder + there).error(), 183U);
  EXPECT_EQ(os::CreateFolder(folder + L"\\no\\new").error(), 3U) << "ERROR_PATH_NOT_FOUND";
}

TEST_F(StoresContract, ACopyReplacesItsTargetUnlessThatRefuses) {
  const auto folder = world::Folder(), from = folder + L"\\from", to = folder + L"\\to";
  world::WriteFile(from, "new");
  world::WriteFile(to, "old and longer");
  (void)os::CreateFolder(folder + L"\\sub");
  constexpr std::uint32_t kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5;
  EXPECT_TRUE(os::OverwriteByCopy(from, to) && os::OverwriteByCopy(from, folder + L"\\fresh"));
  EXPECT_EQ(os::OverwriteByCopy(folder + L"\\none", to).error(), kFileNotFound);
  EXPECT_EQ(os::OverwriteByCopy(folder + L"\\none\\from", to).error(), kPathNotFound);
  EXPECT_EQ(os::OverwriteByCopy(from, folder + L"\\none\\to").error(), kPathNotFound);
  EXPECT_EQ(os::OverwriteByCopy(folder + L"\\sub", to).error(), kAccessDenied);
  EXPECT_EQ(os::OverwriteByCopy(from, folder + L"\\sub").error(), kAccessDenied);
  EXPECT_EQ(world::FileText(folder + L"\\fresh") + world::FileText(to), "newnew");
  for (const auto& [size, text] : {std::pair(2U, "ne"), {9U, "new"}}) {
    const auto start = os::ReadFileStart(from, size);
    EXPECT_TRUE(start && std::string(start->begin(), start->end()) == text);
  }
  EXPECT_EQ(os::ReadFileStart(folder + L"\\none", 2).error(), kFileNotFound);
  EXPECT_EQ(os::ReadFileStart(folder + L"\\sub", 2).error(), kAccessDenied);
}

TEST_F(StoresContract, OnlyAProgramWithAVersionResourceHasAVersionAndAProductName) {
  const auto version = os::ReadFileVersion(os::OwnProgramPath());
  EXPECT_TRUE(version && version->major + version->minor > 0);
  EXPECT_EQ(os::ProductNames(os::OwnProgramPath()), std::vector<std::wstring>{L"Tessaview controller"});
  const auto text = world::Folder() + L"\\a.txt";
  world::WriteFile(text, "no program");
  EXPECT_TRUE(os::ProductNames(text).empty());
  EXPECT_FALSE(os::ReadFileVersion(text) || os::ReadFileVersion(world::Folder() + L"\\none.exe"));
}

// ---- INI files ----

std::wstring Ini() {
  return world::Folder() + L"\\a.ini";
}

TEST_F(StoresContract, AValueIsReadAsTextAndAsANumber) {
  constexpr std::uint32_t kNone = 77;
  for (const auto& [line, text, number] :
       {std::tuple<std::string, std::wstring, std::uint32_t>(" kEY  = 116 \t", L"116", 116U),
        {"Key=\"116\"", L"116", 116U},
        {"Key='1 2'", L"1 2", 1U},
        {"Key=\" 5\"", L" 5", 5U},
        {"Key=12abc", L"12abc", 12U},
        {"Key=-3", L"-3", 0U - 3},
        {"Key=+3", L"+3", 3U},
        {"Key=0x1aZ", L"0x1aZ", 26U},
        {"Key=4294967295", L"4294967295", 0xFFFFFFFF},
        {"Key=1\r\nKey=2", L"1", 1U},
        {"Key=a;b", L"a;b", 0U},
        {"Key=\"a", L"\"a", 0U},
        {"Key = a = b", L"a = b", 0U},
        {"Key=", L"", kNone},
        {";Key=1\r\nOther=1\r\n[Else]\r\nKey=1", L"none", kNone}}) {
    world::WriteFile(Ini(), "[First]\r\nKey=9\r\n[Section]\r\n" + line + "\r\n");
    EXPECT_EQ(os::ReadProfileText(Ini(), L"section", L"Key", L"none"), text) << line;
    EXPECT_EQ(os::ReadProfileNumber(Ini(), L"section", L"Key", kNone), number) << line;
  }
  EXPECT_EQ(os::ReadProfileText(world::Folder() + L"\\none.ini", L"Section", L"Key", L"none"), L"none");
  world::WriteFile(Ini(), "[Section]\r\nKey=" + std::string(300, 'x'));
  EXPECT_EQ(os::ReadProfileText(Ini(), L"Section", L"Key", L"").size(), 259U);
}

TEST_F(StoresContract, AWrittenValueTakesItsPlaceAndLeavesTheRest) {
  ASSERT_TRUE(os::WriteProfileText(Ini(), L"Section", L"Key", L"1")) << "makes the file";
  EXPECT_EQ(world::FileText(Ini()), "[Section]\r\nKey=1\r\n");
  world::WriteFile(Ini(), "; kept\r\n[Section]\r\nKey = 1\r\nOther=2\r\n\r\n[Last]\r\nKey=3\r\n");
  EXPECT_TRUE(os::WriteProfileText(Ini(), L"SECTION", L"KEY", L"9"));
  EXPECT_TRUE(os::WriteProfileText(Ini(), L"Section", L"New", L"On"));
  EXPECT_TRUE(os::WriteProfileText(Ini(), L"More", L"Key", L"4"));
  for (const auto* kept : {"; kept", "Other=2", "[Last]\r\nKey=3"}) {
    EXPECT_NE(world::FileText(Ini()).find(kept), std::string::npos) << kept;
  }
  EXPECT_EQ(os::ReadProfileNumber(Ini(), L"Section", L"Key", 0), 9U);
  EXPECT_EQ(os::ReadProfileText(Ini(), L"Section", L"New", L""), L"On");
  EXPECT_EQ(os::ReadProfileNumber(Ini(), L"More", L"Key", 0), 4U);
  EXPECT_FALSE(os::WriteProfileText(world::Folder() + L"\\no\\a.ini", L"Section", L"Key", L"1")) << "no such folder";
}

}  // namespace

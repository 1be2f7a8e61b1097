#include "os/files.h"
#include "os/settings_store.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using FilesContract = Contract;
using SettingsContract = Contract;
using os::PathKind;

TEST_F(FilesContract, APathIsAFileAFolderOrMissing) {
  const auto folder = world::Folder(), file = folder + L"\\a.txt";
  world::WriteFile(file, "text");
  for (const auto& path : {folder, folder + L"\\"}) EXPECT_EQ(os::QueryPath(path), PathKind::Directory);
  for (const auto& path : {file, folder + L"\\A.TXT", folder + L"/a.txt"})
    EXPECT_EQ(os::QueryPath(path), PathKind::File);
  for (const auto& path : {folder + L"\\b", file + L"\\", folder + L"\\b\\a.txt", std::wstring()})
    EXPECT_EQ(os::QueryPath(path), PathKind::Missing) << testing::PrintToString(path);
}

TEST_F(FilesContract, AFolderIsMadeInAFolder) {
  const auto folder = world::Folder();
  world::WriteFile(folder + L"\\a.txt", "text");
  EXPECT_EQ(os::CreateFolder(folder + L"\\new").error(), 0U);
  EXPECT_EQ(os::QueryPath(folder + L"\\new"), PathKind::Directory);
  for (const auto* there : {L"\\new", L"\\a.txt"}) EXPECT_EQ(os::CreateFolder(folder + there).error(), 183U);
  EXPECT_EQ(os::CreateFolder(folder + L"\\no\\new").error(), 3U) << "ERROR_PATH_NOT_FOUND";
}

TEST_F(FilesContract, ACopyReplacesItsTargetUnlessThatRefuses) {
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
}

TEST_F(FilesContract, TheSystemNamesTheCommonFolderAndThisProgram) {
  const auto common = os::CommonAppDataFolder();
  ASSERT_TRUE(common && common->back() != L'\\');
  EXPECT_EQ(os::QueryPath(*common), PathKind::Directory);
  EXPECT_EQ(os::QueryPath(os::OwnProgramPath()), PathKind::File);
}

TEST_F(FilesContract, OnlyAProgramWithAVersionResourceHasAVersion) {
  const auto version = os::ReadFileVersion(os::OwnProgramPath());
  EXPECT_TRUE(version && version->major + version->minor > 0);
  const auto text = world::Folder() + L"\\a.txt";
  world::WriteFile(text, "no program");
  EXPECT_FALSE(os::ReadFileVersion(text) || os::ReadFileVersion(world::Folder() + L"\\none.exe"));
}

// ---- INI files ----

std::wstring Ini() {
  return world::Folder() + L"\\a.ini";
}

TEST_F(SettingsContract, AValueIsReadAsTextAndAsANumber) {
  constexpr std::uint32_t kNone = 77;
  struct Value {
    std::string line;
    std::wstring text = L"none";
    std::uint32_t number = kNone;
  };
  for (const auto& each :
       {Value{.line = " kEY  = 116 \t", .text = L"116", .number = 116},
        Value{.line = "Key=\"116\"", .text = L"116", .number = 116},
        Value{.line = "Key='1 2'", .text = L"1 2", .number = 1},
        Value{.line = "Key=\" 5\"", .text = L" 5", .number = 5},
        Value{.line = "Key=12abc", .text = L"12abc", .number = 12},
        Value{.line = "Key=-3", .text = L"-3", .number = 0U - 3}, Value{.line = "Key=+3", .text = L"+3", .number = 3},
        Value{.line = "Key=0x1aZ", .text = L"0x1aZ", .number = 26},
        Value{.line = "Key=4294967295", .text = L"4294967295", .number = 0xFFFFFFFF},
        Value{.line = "Key=1\r\nKey=2", .text = L"1", .number = 1},
        Value{.line = "Key=a;b", .text = L"a;b", .number = 0}, Value{.line = "Key=\"a", .text = L"\"a", .number = 0},
        Value{.line = "Key = a = b", .text = L"a = b", .number = 0}, Value{.line = "Key=", .text = L""},
        Value{.line = ";Key=1"}, Value{.line = "Other=1"}, Value{.line = "[Else]\r\nKey=1"}}) {
    world::WriteFile(Ini(), "[First]\r\nKey=9\r\n[Section]\r\n" + each.line + "\r\n");
    EXPECT_EQ(os::ReadProfileText(Ini(), L"section", L"Key", L"none"), each.text) << each.line;
    EXPECT_EQ(os::ReadProfileNumber(Ini(), L"section", L"Key", kNone), each.number) << each.line;
  }
  EXPECT_EQ(os::ReadProfileText(world::Folder() + L"\\none.ini", L"Section", L"Key", L"none"), L"none");
  world::WriteFile(Ini(), "[Section]\r\nKey=" + std::string(300, 'x'));
  EXPECT_EQ(os::ReadProfileText(Ini(), L"Section", L"Key", L"").size(), 259U);
}

TEST_F(SettingsContract, AWrittenValueTakesItsPlaceAndLeavesTheRest) {
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
}  // namespace contract

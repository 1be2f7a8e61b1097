#include "os/files.h"
#include "os/settings_store.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using FilesContract = Contract;
using os::PathKind;

TEST_F(FilesContract, APathIsAFileAFolderOrMissing) {
  const auto folder = world::Folder(), file = folder + L"\\a.txt";
  world::WriteFile(file, "text");
  const struct {
    std::wstring path;
    PathKind kind;
  } cases[]{
      {folder, PathKind::Directory},
      {folder + L"\\", PathKind::Directory},
      {file, PathKind::File},
      {folder + L"\\A.TXT", PathKind::File},
      {folder + L"/a.txt", PathKind::File},
      {folder + L"\\b", PathKind::Missing},
      {file + L"\\", PathKind::Missing},
      {folder + L"\\b\\a.txt", PathKind::Missing},
      {L"", PathKind::Missing},
  };
  for (const auto& each : cases) EXPECT_EQ(os::QueryPath(each.path), each.kind) << testing::PrintToString(each.path);
}

TEST_F(FilesContract, AFolderIsMadeInAFolder) {
  const auto folder = world::Folder();
  world::WriteFile(folder + L"\\a.txt", "text");
  EXPECT_EQ(os::CreateFolder(folder + L"\\new").error(), 0U);
  EXPECT_EQ(os::QueryPath(folder + L"\\new"), PathKind::Directory);
  EXPECT_EQ(os::CreateFolder(folder + L"\\new").error(), 183U) << "ERROR_ALREADY_EXISTS";
  EXPECT_EQ(os::CreateFolder(folder + L"\\a.txt").error(), 183U) << "a file of this name";
  EXPECT_EQ(os::CreateFolder(folder + L"\\no\\new").error(), 3U) << "ERROR_PATH_NOT_FOUND";
}

TEST_F(FilesContract, ACopyReplacesItsTargetUnlessThatRefuses) {
  const auto folder = world::Folder(), from = folder + L"\\from", to = folder + L"\\to";
  world::WriteFile(from, "new");
  world::WriteFile(to, "old and longer");
  (void)os::CreateFolder(folder + L"\\sub");
  const struct {
    std::wstring from, to;
    std::uint32_t error;
  } cases[]{
      {from, to, 0},
      {from, folder + L"\\fresh", 0},
      {folder + L"\\none", to, 2},        // ERROR_FILE_NOT_FOUND
      {folder + L"\\none\\from", to, 3},  // ERROR_PATH_NOT_FOUND
      {from, folder + L"\\none\\to", 3},  //
      {folder + L"\\sub", to, 5},         // ERROR_ACCESS_DENIED
      {from, folder + L"\\sub", 5},       //
  };
  for (const auto& each : cases) {
    EXPECT_EQ(os::OverwriteByCopy(each.from, each.to).error(), each.error)
        << testing::PrintToString(each.from) << " to " << testing::PrintToString(each.to);
  }
  EXPECT_EQ(world::FileText(folder + L"\\fresh"), "new");
  EXPECT_EQ(world::FileText(to), "new");
}

TEST_F(FilesContract, AReadOnlyFileStaysAsItIsAndSoDoItsCopies) {
  const auto folder = world::Folder(), from = folder + L"\\from", locked = folder + L"\\locked.ini",
             copy = folder + L"\\copy";
  world::WriteFile(from, "new");
  world::WriteFile(locked, "[Section]\r\nKey=1\r\n");
  if (!world::SetReadOnly(locked)) GTEST_SKIP() << "this world writes read-only files";
  EXPECT_EQ(os::OverwriteByCopy(from, locked).error(), 5U) << "ERROR_ACCESS_DENIED";
  EXPECT_FALSE(os::WriteProfileText(locked, L"Section", L"Key", L"2"));
  EXPECT_EQ(os::ReadProfileText(locked, L"Section", L"Key", L""), L"1");
  EXPECT_TRUE(os::OverwriteByCopy(locked, copy));
  EXPECT_EQ(os::OverwriteByCopy(from, copy).error(), 5U);
}

TEST_F(FilesContract, TheSystemNamesTheCommonFolderAndThisProgram) {
  const auto common = os::CommonAppDataFolder();
  ASSERT_TRUE(common);
  EXPECT_EQ(os::QueryPath(*common), PathKind::Directory);
  EXPECT_NE(common->back(), L'\\');
  EXPECT_EQ(os::QueryPath(os::OwnProgramPath()), PathKind::File);
}

TEST_F(FilesContract, OnlyAProgramWithAVersionResourceHasAVersion) {
  const auto version = os::ReadFileVersion(os::OwnProgramPath());
  ASSERT_TRUE(version);
  EXPECT_GT(version->major + version->minor, 0);
  const auto text = world::Folder() + L"\\a.txt";
  world::WriteFile(text, "no program");
  EXPECT_FALSE(os::ReadFileVersion(text));
  EXPECT_FALSE(os::ReadFileVersion(world::Folder() + L"\\none.exe"));
}

// ---- INI files ----

class SettingsContract : public Contract {
 protected:
  void Write(const std::string& text) { world::WriteFile(path(), text); }
  static std::wstring path() { return world::Folder() + L"\\a.ini"; }
};

TEST_F(SettingsContract, AValueIsReadAsTextAndAsANumber) {
  constexpr std::uint32_t kNone = 77;
  const auto minus = [](std::uint32_t number) { return 0U - number; };
  const struct {
    std::string line;
    std::wstring text;
    std::uint32_t number;
  } cases[]{
      {"Key=116", L"116", 116},
      {" kEY  = 116 \t", L"116", 116},
      {"Key=\"116\"", L"116", 116},
      {"Key='1 2'", L"1 2", 1},
      {"Key=\" 5\"", L" 5", 5},
      {"Key=12abc", L"12abc", 12},
      {"Key=abc", L"abc", 0},
      {"Key=-3", L"-3", minus(3)},
      {"Key=+3", L"+3", 3},
      {"Key=0x1aZ", L"0x1aZ", 26},
      {"Key=", L"", kNone},
      {";Key=1", L"none", kNone},
      {"Other=1", L"none", kNone},
      {"Key=1\r\nKey=2", L"1", 1},
      {"Key=4294967295", L"4294967295", 0xFFFFFFFF},
      {"Key=a;b", L"a;b", 0},
      {"Key=\"a", L"\"a", 0},
      {"Key = a = b", L"a = b", 0},
      {"[Else]\r\nKey=1", L"none", kNone},
  };
  for (const auto& each : cases) {
    Write("[First]\r\nKey=9\r\n[Section]\r\n" + each.line + "\r\n");
    EXPECT_EQ(os::ReadProfileText(path(), L"section", L"Key", L"none"), each.text) << each.line;
    EXPECT_EQ(os::ReadProfileNumber(path(), L"section", L"Key", kNone), each.number) << each.line;
  }
  const auto missing = world::Folder() + L"\\none.ini";
  EXPECT_EQ(os::ReadProfileText(missing, L"Section", L"Key", L"none"), L"none");
  EXPECT_EQ(os::ReadProfileNumber(missing, L"Section", L"Key", kNone), kNone);
  Write("[Section]\r\nKey=" + std::string(300, 'x'));
  EXPECT_EQ(os::ReadProfileText(path(), L"Section", L"Key", L"").size(), 259U);
}

TEST_F(SettingsContract, AWrittenValueTakesItsPlaceAndLeavesTheRest) {
  ASSERT_TRUE(os::WriteProfileText(path(), L"Section", L"Key", L"1")) << "makes the file";
  EXPECT_EQ(world::FileText(path()), "[Section]\r\nKey=1\r\n");
  Write("; kept\r\n[Section]\r\nKey = 1\r\nOther=2\r\n\r\n[Last]\r\nKey=3\r\n");
  EXPECT_TRUE(os::WriteProfileText(path(), L"SECTION", L"KEY", L"9"));
  EXPECT_TRUE(os::WriteProfileText(path(), L"Section", L"New", L"On"));
  EXPECT_TRUE(os::WriteProfileText(path(), L"More", L"Key", L"4"));
  for (const auto* kept : {"; kept", "Other=2", "[Last]\r\nKey=3"}) {
    EXPECT_NE(world::FileText(path()).find(kept), std::string::npos) << kept;
  }
  EXPECT_EQ(os::ReadProfileNumber(path(), L"Section", L"Key", 0), 9U);
  EXPECT_EQ(os::ReadProfileText(path(), L"Section", L"New", L""), L"On");
  EXPECT_EQ(os::ReadProfileNumber(path(), L"More", L"Key", 0), 4U);
  EXPECT_FALSE(os::WriteProfileText(world::Folder() + L"\\no\\a.ini", L"Section", L"Key", L"1")) << "no such folder";
}

}  // namespace
}  // namespace contract

#include "power/settings_file.h"

#include "os/files.h"
#include "os/settings_store.h"
#include "power/settings.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr const wchar_t* kPath =
    L"C:\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra\\TessaviewSetting.ini";
constexpr const wchar_t* kPathLine =
    L"Setting path =  C:\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra\\"
    L"TessaviewSetting.ini \n ";

TEST(SettingsFile, IsCreatedWithItsDefaultsOnTheDriveOfTheCommonApplicationData) {
  Laptop laptop;
  laptop.files.commonAppData = L"E:\\Some\\Where";
  laptop.files.AddFolder(L"E:\\Some\\Where");
  laptop.Boot();
  EXPECT_EQ(gSettingsPath(), L"E" + std::wstring(kPath).substr(1));
  EXPECT_EQ(laptop.files.Text(gSettingsPath()),
            L"[PowerStatus]\r\nTessaview=On\r\nBacklight=116\r\nBacklightDC=116\r\nPowerSaving=1\r\nMode=Cursor\r\n");
  EXPECT_TRUE(laptop.trace.Contains(L" Create ini file success \n"));
}

TEST(SettingsFile, IsRepairedAtEachStart) {
  using Case = std::tuple<const wchar_t*, Texts, Texts, const wchar_t*>;
  const Texts levels{L"10", L"255", L"10 %"}, noLevels{L"9", L"256", L"-1", L"bright", L""};
  const Case cases[] = {
      {L"Backlight", levels, noLevels, L"116"},
      {L"BacklightDC", levels, noLevels, L"116"},
      {L"Tessaview", {L"On", L"Off"}, {L"on", L"Offf", L""}, L"On"},
      {L"PowerSaving", {L"0", L"1", L"yes"}, {L"2", L"-1", L""}, L"1"},  // "yes" reads as 0
      {L"Mode", {L"Cursor", L"Touch"}, {L"touch", L"Cursor ?", L""}, L"Cursor"},
  };
  const auto afterStart = [](const wchar_t* key, const std::wstring& stored) {
    Laptop laptop({.saved = L"Off"});
    laptop.settings.Set(key, stored);
    laptop.Boot();
    EXPECT_TRUE(LogsInOrder(laptop, {L" ini File already exist \n", kPathLine}));
    EXPECT_TRUE(laptop.files.FolderCreations().empty());
    return laptop.settings.Text(key);
  };
  for (const auto& [key, kept, repaired, standard] : cases) {
    SCOPED_TRACE(key);
    for (const auto& stored : kept) EXPECT_EQ(afterStart(key, stored), stored);
    for (const auto& stored : repaired) EXPECT_EQ(afterStart(key, stored), standard) << "from " << stored;
  }
}

TEST(SettingsFile, WithoutAPlaceForItReadsGiveDefaultsAndWritesAreLost) {
  Laptop laptop({.backlight = 200, .backlightDC = 50, .powerSaving = false, .saved = L"Off"});
  laptop.faults.Fail<&os::CommonAppDataFolder>();
  laptop.Boot();
  EXPECT_EQ(gSettingsPath(), L"");
  EXPECT_EQ(ReadSettingNumber(L"Backlight", 77), 77u);
  EXPECT_EQ(ReadSavedPower(), SavedPower::NoChoice);
  EXPECT_EQ(gSettings().UserBacklightValueDC, 116u);
  EXPECT_EQ(gSettings().PowerSaving, 1u);

  laptop.ui.Send(L"BLSET", {.percent = 50});
  EXPECT_EQ(gSettings().UserBacklightValue, 127u) << "in memory the choice counts all the same";
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"200") << "a file that was not named is not touched";
  EXPECT_EQ(laptop.faults.Calls<&os::WriteProfileText>(), 0u)
      << "without a path the system would write a file of its own";
}

TEST(SettingsFile, AFileThatCannotBeMadeLeavesTheDefaultsInForce) {
  for (const bool oddPath : {false, true}) {
    Laptop laptop;
    if (oddPath) laptop.files.commonAppData = L"\\\\server\\share";  // a path without a first part
    if (!oddPath) laptop.faults.Fail<&os::CreateFolder>({.error = 5});
    EXPECT_TRUE(laptop.Boot());
    EXPECT_FALSE(laptop.settings.Exists());
    EXPECT_EQ(laptop.trace.Contains(L" Create ini file fail \n"), oddPath);
    EXPECT_EQ(gSettings().UserBacklightValueDC, 116u);
  }
}

}  // namespace

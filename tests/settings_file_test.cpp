#include "power/settings_file.h"

#include "power/settings.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

TEST(SettingsFile, IsCreatedWithItsDefaultsOnTheDriveOfTheCommonApplicationData) {
  Laptop laptop;
  laptop.files.commonAppData = L"E:\\Some\\Where";
  laptop.files.AddFolder(L"E:\\Some\\Where");
  laptop.Boot();
  EXPECT_EQ(gSettingsPath(),
            L"E:\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra\\TessaviewSetting.ini");
  EXPECT_EQ(laptop.files.Text(gSettingsPath()),
            L"[PowerStatus]\r\nTessaview=On\r\nBacklight=116\r\nBacklightDC=116\r\nPowerSaving=1\r\nMode=Cursor\r\n");
}

TEST(SettingsFile, IsRepairedAtEachStart) {
  struct Value {
    const wchar_t* key;
    Texts kept, repaired;
    const wchar_t* standard;
  };
  for (const auto& each :
       {Value{.key = L"Backlight", .kept = {L"10", L"255", L"10 %"}, .repaired = {L"9", L"256"}, .standard = L"116"},
        Value{.key = L"BacklightDC", .kept = {L"10"}, .repaired = {L"9", L"-1", L"bright", L""}, .standard = L"116"},
        Value{.key = L"Tessaview", .kept = {L"On", L"Off"}, .repaired = {L"on", L"Offf", L""}, .standard = L"On"},
        // "yes" reads as 0.
        Value{.key = L"PowerSaving", .kept = {L"0", L"yes"}, .repaired = {L"2", L"-1", L""}, .standard = L"1"},
        Value{.key = L"Mode", .kept = {L"Cursor", L"Touch"}, .repaired = {L"touch", L""}, .standard = L"Cursor"}}) {
    const auto afterStart = [&](const std::wstring& stored) {
      Laptop laptop({.saved = L"Off"});
      laptop.settings.Set(each.key, stored);
      laptop.Boot(0);
      EXPECT_TRUE(laptop.files.FolderCreations().empty());
      return laptop.settings.Text(each.key);
    };
    for (const auto& stored : each.kept) EXPECT_EQ(afterStart(stored), stored);
    for (const auto& stored : each.repaired) EXPECT_EQ(afterStart(stored), each.standard) << "from " << stored;
  }
}

TEST(SettingsFile, WithoutAPlaceForItReadsGiveDefaultsAndWritesAreLost) {
  Laptop laptop({.backlight = 200, .backlightDC = 50, .powerSaving = false, .saved = L"Off"});
  laptop.faults.Fail<&os::CommonAppDataFolder>();
  laptop.Boot();
  EXPECT_EQ(ReadSavedPower(), SavedPower::NoChoice);
  EXPECT_EQ(gSettings().UserBacklightValueDC, 116u);
  EXPECT_EQ(gSettings().PowerSaving, 1u);
  laptop.ui.Send(L"BLSET", {.percent = 50});
  EXPECT_EQ(gSettings().UserBacklightValue, 127u) << "in memory the choice counts all the same";
  EXPECT_EQ(laptop.faults.Calls<&os::WriteProfileText>(), 0u)
      << "without a path the system would write a file of its own";
  laptop.faults.ClearAll();
  laptop.files.commonAppData = L"\\\\server\\data";
  laptop.Boot();
  EXPECT_EQ(laptop.faults.Calls<&os::CreateFolder>(), 0u) << "nor is there one without a drive";
}

}  // namespace

// The settings file as it lies on disk.
#include <filesystem>
#include <fstream>

#include "tests/lab_test.h"

namespace {

using namespace lab;

using SettingsOnDisk = LabTest;

std::string FileText() {
  std::ifstream file(std::filesystem::path(SettingsPath()), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(SettingsOnDisk, AreMadeWithTheirFoldersAndBringTheUsersChoiceBack) {
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(SettingsPath()).parent_path().parent_path(), ignored);
  StartController();
  EXPECT_EQ(FileText(),
            "[PowerStatus]\r\nTessaview=On\r\nBacklight=116\r\nBacklightDC=116\r\nPowerSaving=1\r\nMode=Cursor\r\n");
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kAcDcPowerSource, kOnMains));
  ASSERT_TRUE(SendCommand(L"BLSET", {.handle = 100}));
  ASSERT_TRUE(SendCommand(L"POWERSAVEROFF"));
  Controller::PressF6(1, kF6PanelOff);
  Controller::Exit();
  ASSERT_EQ(laptop.controller.WaitForExit(), 0u);
  const std::string chosen =
      "[PowerStatus]\r\nTessaview=Off\r\nBacklight=255\r\nBacklightDC=116\r\nPowerSaving=0\r\nMode=Cursor\r\n";
  EXPECT_EQ(FileText(), chosen);

  Happens(L"the controller is started again: the panel was off, and is switched off");
  StartController();
  EXPECT_TRUE(Asked(L"DEVS 0x00050031 = 0"));
  for (const auto& demand : Demands()) EXPECT_EQ(demand, L"DEVS 0x00050031 = 0");
  EXPECT_EQ(FileText(), chosen);
}

}  // namespace

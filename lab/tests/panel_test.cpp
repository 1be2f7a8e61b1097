// The C panel's power, backlight and refresh rate: texts of the UI, hot keys, registers of the firmware.
#include <utility>

#include "tests/lab_test.h"

namespace {

using namespace lab;

using Panel = LabTest;

/// What the firmware was told, readings left out.
std::vector<std::wstring> Told(const Journal& requests, std::size_t mark) {
  auto lines = requests.Since(mark);
  std::erase_if(lines, [](const std::wstring& line) { return line.rfind(L"DEVS", 0) != 0; });
  return lines;
}

TEST_F(Panel, BacklightIsReadFromItsRegister) {
  StartController();
  const std::pair<std::uint32_t, const wchar_t*> levels[] = {
      {0, L"BLSET"}, {10, L"BLSET 3"}, {116, L"BLSET 45"}, {0x1FF, L"BLSET 99"}};  // only the low 8 bits are the level
  for (const auto& [level, answer] : levels) {
    ASSERT_TRUE(laptop.firmware.Set(kBacklight, level));
    const auto told = laptop.uiTalk.Mark();
    ASSERT_TRUE(SendCommand(L"BLGET"));
    EXPECT_TRUE(UiIsTold(answer, told)) << level;
  }

  const std::tuple<FirmwareFaultKind, std::uint32_t, const wchar_t*> faults[] = {
      {kRequestFails, 0, L"BLSET 99"}, {kShortReply, 2, L"BLSET"}, {kShortReply, 0, L"BLSET"}};
  for (const auto& [kind, bytes, answer] : faults) {
    ASSERT_TRUE(laptop.firmware.SetFault(kBacklight, kind, bytes));
    const auto told = laptop.uiTalk.Mark();
    ASSERT_TRUE(SendCommand(L"BLGET"));
    EXPECT_TRUE(UiIsTold(answer, told)) << "a reply of " << bytes << " bytes";
  }
}

TEST_F(Panel, BacklightIsStoredForThePowerSourceAndAppliedWithIt) {
  StartController();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kAcDcPowerSource, kOnMains));
  ASSERT_TRUE(SendCommand(L"BLSET", 50));
  state.onMains = 0;
  auto asked = laptop.requests.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kAcDcPowerSource, kOnBattery));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050032 = 116", asked));
  ASSERT_TRUE(SendCommand(L"BLSET", 4));
  EXPECT_EQ(Setting("Backlight"), "127");
  EXPECT_EQ(Setting("BacklightDC"), "10");

  state.onMains = 1;
  asked = laptop.requests.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kAcDcPowerSource, kOnMains));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050032 = 127", asked));
}

TEST_F(Panel, F6SwitchesItOffAndTheTouchPadToCursorMode) {
  StartController();
  const auto asked = laptop.requests.Mark(), told = laptop.uiTalk.Mark(), reported = laptop.reports.Mark();
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(UiIsTold(L"POWEROFF", told));
  EXPECT_TRUE(laptop.reports.WaitFor(kCursorReport, reported));
  EXPECT_EQ(Told(laptop.requests, asked), std::vector<std::wstring>{L"DEVS 0x00050031 = 0"});
  EXPECT_EQ(laptop.reports.Since(reported).size(), 1u);
  EXPECT_EQ(Setting("Tessaview"), "Off");
}

TEST_F(Panel, StaysWhatItWasWhenTheFirmwareRefuses) {
  StartController();
  ASSERT_TRUE(laptop.firmware.SetFault(kPanelPower, kRequestFails));
  const auto asked = laptop.requests.Mark(), reported = laptop.reports.Mark();
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050031 = 0 (failed)", asked));
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_EQ(Setting("Tessaview"), "On");
  EXPECT_TRUE(laptop.reports.Since(reported).empty()) << "the touch pad keeps its mode";
}

TEST_F(Panel, FoldedOverTheUiIsToldOffAndNothingIsStored) {
  StartController();
  auto told = laptop.uiTalk.Mark();
  ASSERT_TRUE(laptop.firmware.Set(kFlipState, 1));
  Controller::PostHotKey(HotKey::FlipChanged);
  EXPECT_TRUE(UiIsTold(L"POWEROFF", told));
  EXPECT_EQ(Setting("Tessaview"), "On");

  told = laptop.uiTalk.Mark();
  ASSERT_TRUE(laptop.firmware.Set(kFlipState, 0));
  Controller::PostHotKey(HotKey::FlipChanged);
  EXPECT_TRUE(UiIsTold(L"POWERON", told));
}

TEST_F(Panel, RefreshRateGoesToTheFirmware) {
  StartController();
  const std::pair<std::int32_t, const wchar_t*> rates[] = {
      {30, L"DEVS 0x00050034 = 0"}, {60, L"DEVS 0x00050034 = 1"}, {45, L"DEVS 0x00050034 = 1"}};
  for (const auto& [rate, request] : rates) {
    const auto asked = laptop.requests.Mark();
    ASSERT_TRUE(SendCommand(L"SETFREQUENCY", 0, 0, rate));
    EXPECT_TRUE(laptop.requests.WaitFor(request, asked)) << rate;
  }
  ASSERT_TRUE(laptop.firmware.SetFault(kRefreshRate, kRequestFails));
  ASSERT_TRUE(SendCommand(L"SETFREQUENCY", 0, 0, 60));
  EXPECT_TRUE(laptop.trace.WaitFor(L"[SetFPS] WMI Method Fail"));

  ASSERT_TRUE(SendCommand(L"GETFREQUENCY"));
  EXPECT_TRUE(UiIsTold(L"SETFREQUENCY (60, 60)")) << "as the X server has both panels";
}

TEST_F(Panel, WithoutTheDriverEverythingElseGoesOn) {
  ASSERT_TRUE(laptop.firmware.Stop());
  ASSERT_TRUE(laptop.controller.Start());
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"activated *"));
  ASSERT_TRUE(SendCommand(L"BLGET"));
  EXPECT_TRUE(UiIsTold(L"BLSET 99")) << "the level of a panel that cannot be asked";
  Controller::PressF6(1, kF6PanelOff);
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_EQ(Setting("Tessaview"), "On") << "a panel that was not switched off";

  ASSERT_TRUE(laptop.firmware.Start());
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050031 = 0")) << "the driver is back, and is used";
  EXPECT_TRUE(Eventually([] { return Setting("Tessaview") == "Off"; }));
}

}  // namespace

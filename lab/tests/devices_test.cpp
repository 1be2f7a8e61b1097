// The panel's firmware and touch controller when they refuse, or come late.
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Panel = LabTest;

TEST_F(Panel, StaysWhatItWasWhenTheFirmwareRefuses) {
  StartController();
  ASSERT_TRUE(laptop.firmware.SetFault(kPanelPower, kRequestFails));
  Happens(L"F6 is pressed");
  const auto reported = laptop.reports.Mark();
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_EQ(Demands(), std::vector<std::wstring>{L"DEVS 0x00050031 = 0 (failed)"});
  EXPECT_EQ(Setting("Tessaview"), "On");
  EXPECT_EQ(laptop.reports.Mark(), reported) << "the touch pad keeps its mode";
}

using Touch = LabTest;

TEST_F(Touch, AControllerThatIsPluggedInLateIsFoundAllTheSame) {
  ASSERT_TRUE(laptop.touch.Unplug(kTouchPad));
  ASSERT_TRUE(laptop.controller.Start());
  ASSERT_TRUE(Eventually([] { return Controller::Window() != nullptr; }));
  ASSERT_TRUE(Traced(L"Dissable Device*"));
  EXPECT_FALSE(laptop.trace.Contains(L"Find TouchPad Vid & Pid Success!"));
  ASSERT_TRUE(laptop.touch.Plug(kTouchPad));
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_TRUE(laptop.trace.Contains(L"Find TouchPad Vid & Pid Success!"));
  Happens(L"F6 is pressed");
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(PadGot(kCursorReport));
}

}  // namespace

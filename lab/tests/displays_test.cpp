// The panels beyond the day: Win+P with real keys.
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Displays = LabTest;

TEST_F(Displays, WinPBringsBackAPanelThatIsOffAndWanted) {
  StartController();
  ASSERT_TRUE(laptop.firmware.Set(kPanelPower, kPanelOff));
  Happens(L"the user presses Win+P");
  keybd_event(VK_LWIN, 0, 0, 0);
  keybd_event('P', 0, 0, 0);
  keybd_event('P', 0, KEYEVENTF_KEYUP, 0);
  keybd_event(VK_LWIN, 0, KEYEVENTF_KEYUP, 0);
  EXPECT_TRUE(Traced(L"[Win + P] Set TessaviewPowerControl(TRUE)"));
  EXPECT_TRUE(Asked(L"DEVS 0x00050032 = 116"));
  EXPECT_TRUE(Patched(L"SetDisplayConfig with 0 paths, flags 132"));
}

}  // namespace

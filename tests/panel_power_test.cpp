// Switching the C panel on and off: what the firmware, the settings file, the touch surface and the UI see of it.

#include "power/panel_power.h"

#include "power/panel_status.h"
#include "tests/support.h"

namespace {

using namespace support;
using tessaview::TessaviewPowerControl;

// What runs on the test's thread here runs as the main thread does, between two messages.

TEST(PanelPowerOn, OnMainsAppliesTheStoredLevelWithinItsBounds) {
  RunningLaptop laptop({.uiRunning = true});
  for (const auto& [stored, applied] :
       {std::pair(L"0", 10U), {L"9", 10U}, {L"11", 11U}, {L"256", 255U}, {L"bright", 10U}, {L"", 10U}}) {
    ForgetTheStory(laptop);
    laptop.settings.Set(L"Backlight", stored);
    TessaviewPowerControl(true);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{applied});
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWERON"});
  }
}

TEST(PanelPowerOn, FollowsThePowerSource) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .saved = L"Off"});  // the source is not read while off
  const auto applied = [&] {
    ForgetTheStory(laptop);
    TessaviewPowerControl(true);
    return laptop.firmware.Writes(Firmware::kBacklight);
  };
  EXPECT_EQ(applied(), Words{150}) << "as on battery before it was ever read";
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  EXPECT_EQ(applied(), Words{58});
  laptop.power.SourceUnknown();
  laptop.power.BatterySaver(false);  // the controller looks, and learns nothing
  EXPECT_EQ(applied(), Words{200}) << "that counts as mains";
}

TEST(PanelPowerOff, SwitchesThePanelOffRemembersItAndMakesTheSurfaceATouchPad) {
  RunningLaptop laptop({.uiRunning = true});
  TessaviewPowerControl(false);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0}) << "never a one";
}

TEST(PanelPower, ThatTheFirmwareDoesNotTakeIsNotRememberedYetTheUiIsBroughtUpToDate) {
  for (const bool on : {true, false}) {
    const std::wstring before = on ? L"Off" : L"On";
    RunningLaptop laptop({.saved = before, .uiRunning = true});
    const bool cursorMode = laptop.touch.InCursorMode();
    laptop.faults.Fail<&os::Control>();
    TessaviewPowerControl(on);
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), before);
    EXPECT_EQ(laptop.ui.Received(), Texts{on ? L"POWEROFF" : L"POWERON"}) << "from the old choice";
    EXPECT_EQ(laptop.touch.InCursorMode(), cursorMode);
  }
}

}  // namespace

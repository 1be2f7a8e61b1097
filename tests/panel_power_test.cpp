// Switching the C panel on and off: what the firmware, the settings file, the touch surface and the UI see of it.

#include "power/panel_power.h"

#include "os/device_io.h"
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
    laptop.settings.Set(L"Tessaview", L"Off");
    laptop.settings.Set(L"Backlight", stored);
    TessaviewPowerControl(true);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{applied});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWERON"});
  }
}

TEST(PanelPowerOn, FollowsThePowerSource) {
  struct Case {
    void (*happens)(sim::Power& power);
    std::uint32_t stored = 150, applied;
  };
  for (const auto& each :
       {Case{.happens = [](sim::Power& p) { p.Unplug(); }, .applied = 150},
        Case{.happens = [](sim::Power& p) { p.Unplug(), p.BatterySaver(true); }, .stored = 59, .applied = 58},
        Case{.happens = [](sim::Power& p) { p.Unplug(), p.BatterySaver(true); }, .stored = 57, .applied = 57},
        // The controller looks, and learns nothing; that counts as mains.
        Case{.happens = [](sim::Power& p) { p.SourceUnknown(), p.BatterySaver(true); }, .applied = 200}}) {
    RunningLaptop laptop({.backlight = 200, .backlightDC = each.stored});
    each.happens(laptop.power);
    ForgetTheStory(laptop);
    TessaviewPowerControl(true);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{each.applied});
  }
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .saved = L"Off"});  // the source is not read while off
  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{150}) << "as on battery before it was ever read";
}

TEST(PanelPowerOff, SwitchesThePanelOffRemembersItAndMakesTheSurfaceATouchPad) {
  RunningLaptop laptop({.uiRunning = true});
  TessaviewPowerControl(false);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0}) << "never a one";
  EXPECT_TRUE(laptop.firmware.PanelOn()) << "a backlight level brings the panel back";
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

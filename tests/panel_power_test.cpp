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
  using Case = std::pair<const wchar_t*, std::uint32_t>;  // null: the key is missing
  for (const auto& [stored, applied] :
       {Case{L"0", 10}, {L"9", 10}, {L"11", 11}, {L"255", 255}, {L"256", 255}, {L"bright", 10}, {nullptr, 10}}) {
    RunningLaptop laptop({.uiRunning = true});
    laptop.settings.Set(L"Tessaview", L"Off");
    laptop.settings.Remove(L"Backlight");
    if (stored != nullptr) laptop.settings.Set(L"Backlight", stored);
    TessaviewPowerControl(true);

    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{applied});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWERON"});
    EXPECT_TRUE(tessaview::isTessaviewPowerOn());
  }
}

TEST(PanelPowerOn, FollowsThePowerSource) {
  using Case = std::tuple<const char*, void (*)(sim::Power&), std::uint32_t, std::uint32_t>;
  for (const auto& [story, happens, stored, applied] :
       {Case{"battery", [](sim::Power& p) { p.Unplug(); }, 150, 150},
        {"saved battery", [](sim::Power& p) { p.Unplug(), p.BatterySaver(true); }, 59, 58},
        {"dim on saved battery", [](sim::Power& p) { p.Unplug(), p.BatterySaver(true); }, 57, 57},
        {"saver on mains", [](sim::Power& p) { p.BatterySaver(true); }, 150, 200},
        // The controller looks, and learns nothing; that counts as mains.
        {"unknown", [](sim::Power& p) { p.SourceUnknown(), p.BatterySaver(true); }, 150, 200}}) {
    SCOPED_TRACE(story);
    RunningLaptop laptop({.backlight = 200, .backlightDC = stored});
    happens(laptop.power);
    ForgetTheStory(laptop);
    TessaviewPowerControl(true);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{applied});
  }
}

TEST(PanelPowerOn, CountsAsOnBatteryBeforeThePowerSourceWasEverRead) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .saved = L"Off"});  // the source is not read while off
  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{150});
}

TEST(PanelPowerOff, SwitchesThePanelOffRemembersItAndMakesTheSurfaceATouchPad) {
  RunningLaptop laptop({.uiRunning = true});
  TessaviewPowerControl(false);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0});
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(tessaview::isTessaviewPowerOn());
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);

  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0}) << "never a one";
  EXPECT_TRUE(laptop.firmware.PanelOn()) << "a backlight level brings the panel back";
}

TEST(PanelPower, ThatTheFirmwareDoesNotTakeIsNotRememberedYetTheUiIsBroughtUpToDate) {
  for (const bool on : {true, false}) {
    SCOPED_TRACE(on);
    const std::wstring before = on ? L"Off" : L"On";
    RunningLaptop laptop({.saved = before, .uiRunning = true});
    const bool cursorMode = laptop.touch.InCursorMode();
    laptop.faults.Fail<&os::Control>();
    TessaviewPowerControl(on);

    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), before);
    EXPECT_EQ(laptop.ui.Received(), Texts{on ? L"POWEROFF" : L"POWERON"}) << "from the old choice";
    EXPECT_EQ(laptop.touch.InCursorMode(), cursorMode);
    for (const auto& line : laptop.trace.Lines()) EXPECT_EQ(line.find(L"Set ini"), std::wstring::npos);
  }
}

}  // namespace

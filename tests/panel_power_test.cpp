// Switching the C panel on and off: what the firmware, the settings file, the touch surface and the UI see of it.

#include "power/panel_power.h"

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "power/panel_status.h"
#include "tests/support.h"

namespace {

using sim::Firmware;
using sim::Laptop;
using support::ForgetTheStory;
using support::LogsInOrder;
using support::RunningLaptop;
using tessaview::TessaviewPowerControl;
using Texts = std::vector<std::wstring>;
using Words = std::vector<std::uint32_t>;

// What runs on the test's thread here runs as the main thread does, between two messages.

TEST(PanelPowerOn, OnMainsAppliesTheStoredLevelWithinItsBounds) {
  struct Case {
    const wchar_t* stored;  // null: the key is missing
    std::uint32_t applied;
  };
  for (const auto& c : {Case{L"3", 10},
                        {L"0", 10},
                        {L"9", 10},
                        {L"10", 10},
                        {L"11", 11},
                        {L"200", 200},
                        {L"255", 255},
                        {L"256", 255},
                        {L"300", 255},
                        {L"", 10},
                        {L"bright", 10},
                        {nullptr, 10}}) {
    SCOPED_TRACE(testing::PrintToString(c.stored));
    RunningLaptop laptop({.uiRunning = true});
    laptop.settings.Set(L"Tessaview", L"Off");
    laptop.settings.Remove(L"Backlight");
    if (c.stored != nullptr) laptop.settings.Set(L"Backlight", c.stored);
    TessaviewPowerControl(true);

    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{c.applied});
    EXPECT_TRUE(laptop.firmware.PanelOn());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWERON"});
    EXPECT_TRUE(tessaview::isTessaviewPowerOn.get());
  }
}

TEST(PanelPowerOn, FollowsThePowerSource) {
  struct Case {
    const char* story;
    void (*happens)(sim::Power& power);
    std::uint32_t applied;
  };
  for (const auto& c : {Case{"mains", [](sim::Power&) {}, 200},
                        {"battery", [](sim::Power& p) { p.Unplug(); }, 150},
                        {"saved battery", [](sim::Power& p) { p.Unplug(), p.BatterySaver(true); }, 58},
                        {"saver on mains", [](sim::Power& p) { p.BatterySaver(true); }, 200},
                        // The controller looks, and learns nothing; that counts as mains.
                        {"unknown", [](sim::Power& p) { p.SourceUnknown(), p.BatterySaver(true); }, 200}}) {
    SCOPED_TRACE(c.story);
    RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
    c.happens(laptop.power);
    ForgetTheStory(laptop);
    TessaviewPowerControl(true);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{c.applied});
  }
}

TEST(PanelPowerOn, CountsAsOnBatteryBeforeThePowerSourceWasEverRead) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .saved = L"Off"});  // the source is not read while off
  TessaviewPowerControl(true);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{150});
}

TEST(PanelPowerOff, SwitchesThePanelOffRemembersItAndMakesTheSurfaceATouchPad) {
  for (const bool onMains : {true, false}) {
    SCOPED_TRACE(onMains);
    RunningLaptop laptop({.uiRunning = true});
    if (!onMains) laptop.power.Unplug();
    ForgetTheStory(laptop);
    TessaviewPowerControl(false);

    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
    EXPECT_FALSE(laptop.firmware.PanelOn());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
    EXPECT_TRUE(laptop.touch.InCursorMode());
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
    EXPECT_FALSE(tessaview::isTessaviewPowerOn.get());
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(PanelPower, NeverWritesAOneToThePowerRegister) {
  RunningLaptop laptop;
  for (const bool on : {false, true, false, true}) TessaviewPowerControl(on);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), (Words{0, 0}));
  EXPECT_TRUE(laptop.firmware.PanelOn()) << "a backlight level brings the panel back";
}

TEST(PanelPower, ThatTheFirmwareDoesNotTakeIsNotRememberedYetTheUiIsBroughtUpToDate) {
  struct Trouble {
    const char* story;
    void (*make)(Laptop& laptop);
  };
  constexpr Trouble kTroubles[] = {
      {"no driver", [](Laptop& laptop) { laptop.firmware.driverInstalled = false; }},
      {"requests refused", [](Laptop& laptop) { laptop.faults.Fail<&os::Control>(); }},
  };
  for (const auto& trouble : kTroubles) {
    for (const bool on : {true, false}) {
      SCOPED_TRACE(trouble.story);
      SCOPED_TRACE(on);
      const std::wstring before = on ? L"Off" : L"On";
      RunningLaptop laptop({.saved = before, .uiRunning = true});
      const bool cursorMode = laptop.touch.InCursorMode();
      trouble.make(laptop);
      TessaviewPowerControl(on);

      EXPECT_EQ(laptop.settings.Text(L"Tessaview"), before);
      EXPECT_EQ(laptop.ui.Received(), Texts{on ? L"POWEROFF" : L"POWERON"}) << "from the old choice";
      EXPECT_EQ(laptop.touch.InCursorMode(), cursorMode);
      EXPECT_TRUE(LogsInOrder(laptop, {L"[TessaviewPowerControl] -------- End -------- \n",
                                       L"[Update_UI_Status] ------- Start ------- \n"}));
      for (const auto& line : laptop.trace.Lines()) EXPECT_EQ(line.find(L"Set ini"), std::wstring::npos);
    }
  }
}

TEST(PanelPower, TellsItsStepsToTheLog) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
  TessaviewPowerControl(true);
  const auto path = L"[TessaviewPowerControl] Read ini = " + laptop.settings.Path() + L" \n";
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"[TessaviewPowerControl] -------- Start -------- \n", path.c_str(),
               L"[TessaviewPowerControl] Tessaview Power On Setting \n",
               L"[TessaviewPowerControl] BacklightValue ( ini = 200 , WMI = 0XC8 ) \n ",
               L"[TessaviewPowerControl] Tessaview Backlight On (Set 0x00050032, 0XC8) \n ",
               L"[TessaviewPowerControl] Set ini : [PowerStatus] Tessaview = On \n",
               L"[TessaviewPowerControl] -------- End -------- \n", L"[Update_UI_Status] ------- Start ------- \n"}));

  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  laptop.trace.Clear();
  TessaviewPowerControl(true);
  EXPECT_TRUE(LogsInOrder(laptop, {L"[TessaviewPowerControl] is DC mode, EnterPowerSavingMode \n",
                                   L"[TessaviewPowerControl] BacklightValue = 58, UserBacklightValueDC = 150",
                                   L"[TessaviewPowerControl] Tessaview Backlight On (Set 0x00050032, 0X3A) \n "}));

  laptop.trace.Clear();
  TessaviewPowerControl(false);
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"[TessaviewPowerControl] -------- Start -------- \n", path.c_str(),
               L"[TessaviewPowerControl] Tessaview Power Off Setting \n",
               L"[TessaviewPowerControl] Tessaview Power Off (Set 0x00050031, 0x00) \n ",
               L"[TessaviewPowerControl] Set ini : [PowerStatus] Tessaview = Off \n",
               L"[TessaviewPowerControl] Set Cursor Mode \n", L"[TessaviewPowerControl] -------- End -------- \n"}));
}

TEST(SavedPanelPower, IsAppliedOnlyWhenSpeltExactly) {
  struct Case {
    const wchar_t* saved;
    Words levels, powers;
    const wchar_t* line;
  };
  const Case cases[] = {{L"On", {116}, {}, L"Read ini file = Tessaview Power On \n"},
                        {L"Off", {}, {0}, L"Read ini file = Tessaview Power Off \n"},
                        {L"on", {}, {}, nullptr},
                        {L"ON", {}, {}, nullptr},
                        {L"OFF", {}, {}, nullptr},
                        {L"Only", {}, {}, nullptr},
                        {L"", {}, {}, nullptr}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.saved));
    RunningLaptop laptop;
    laptop.settings.Set(L"Tessaview", c.saved);
    tessaview::ApplyIniPowerStatus();
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), c.levels);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), c.powers);
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), c.saved);
    if (c.line != nullptr) {
      EXPECT_TRUE(laptop.trace.Contains(c.line));
    } else {
      EXPECT_EQ(laptop.trace.Lines(), Texts{});
    }
  }
}

}  // namespace

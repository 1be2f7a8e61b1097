// Lid, console display and what closing the lid does.

#include "power/lid_actions.h"
#include "tests/support.h"

namespace {

using namespace support;

TEST(Lid, ClosedThePanelIsNotShownAndMaskedOnlyWhereTheMachineGoesOn) {
  for (const bool goesOn : {false, true}) {
    RunningLaptop laptop({.uiRunning = true});
    laptop.power.SetLidAction(goesOn ? Power::LidAction::DoNothing : Power::LidAction::Hibernate);
    ForgetTheStory(laptop);
    laptop.power.CloseLid();
    EXPECT_EQ(laptop.ui.Received(), goesOn ? (Texts{L"POWEROFF", L"OPENMASK"}) : Texts{L"POWEROFF"});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
    ForgetTheStory(laptop);
    laptop.power.OpenLid();
    EXPECT_EQ(laptop.ui.Received(),
              goesOn ? (Texts{L"SETWALLPAPER", L"POWERON", L"CLOSEMASK"}) : (Texts{L"POWERON", L"CLOSEMASK"}));
    EXPECT_TRUE(laptop.displays.SettingsChanges().empty()) << "nothing was wrong";
  }
}

TEST(Lid, OpenedOverAVirtualMonitorNudgesThePanelIntoItsPlace) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.power.SetLidAction(Power::LidAction::DoNothing);
  laptop.power.CloseLid();
  laptop.displays.wallpaperPaths = {L"", L"\\\\?\\DISPLAY#TSB8888#a"};
  ForgetTheStory(laptop);
  laptop.power.OpenLid();
  EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 0);
  EXPECT_TRUE(laptop.trace.Contains(L"[LidOpenMoveCPanelMonitorOnePixel] Virtual monitor\n"));
  EXPECT_EQ(laptop.displays.SettingsChanges().size(), 2u) << "one pixel away, and back";
  EXPECT_EQ(laptop.displays.cPanel().x, 0);
}

TEST(Lid, FirstNotificationsAreNoOpening) {
  sim::Laptop laptop({.uiRunning = true});
  laptop.power.SetSchemeLidAction(true, 0);
  laptop.Boot();
  EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 0);
  EXPECT_GT(TimesTold(laptop, L"CLOSEMASK"), 0);
  laptop.power.SetDisplay(Power::Display::Off);
  laptop.power.SetDisplay(Power::Display::On);
  EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 1);
}

TEST(Lid, TheMaskWaitsForTheUserWithoutATimeLimitAndHoldsUpNothing) {
  for (const auto* const cover : {L"Windows.UI.Core.CoreWindow", L"BootAppClass", L"LockScreenControllerProxyWindow"}) {
    SCOPED_TRACE(testing::PrintToString(cover));
    RunningLaptop laptop({.uiRunning = true});
    const auto shell = laptop.desktop.Foreground();
    laptop.desktop.OpenInForeground({.className = cover});
    laptop.power.SetDisplay(Power::Display::Off);
    laptop.power.SetDisplay(Power::Display::On);
    laptop.Advance(3'600'000);
    laptop.ui.Send(L"BLGET");
    EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 0);
    EXPECT_EQ(TimesTold(laptop, L"BLSET"), 1) << "commands are served meanwhile";
    laptop.desktop.SetForeground(shell);
    laptop.Advance(100);
    EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 1);

    laptop.desktop.OpenInForeground({.className = cover});
    laptop.power.CloseLid();
    laptop.power.OpenLid();
    laptop.power.CloseLid();
    laptop.desktop.SetForeground(shell);
    laptop.Advance(1000);
    EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 1) << "the lid is closed again";
    laptop.window.PickMenuItem(105);
    EXPECT_TRUE(laptop.ExitCode());
  }
}

TEST(Lid, WhatClosingItDoesIsToldToSecondGenerationFirmware) {
  using Case = std::tuple<int, std::uint32_t, Words, Words>;
  for (const auto& [generation, action, onChange, onPowerSource] :
       {Case{2, 0, {0}, {0}}, Case{2, 1, {}, {1}}, Case{2, 2, {1}, {1}}, Case{2, 3, {1}, {1}}, Case{2, 6, {1}, {}},
        Case{1, 0, {}, {}}, Case{1, 2, {}, {}}}) {
    SCOPED_TRACE(testing::Message() << "generation " << generation << ", action " << action);
    RunningLaptop laptop({.generation = generation});
    laptop.power.Notify(os::PowerSetting::LidCloseAction, action);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction), onChange);
    EXPECT_EQ(tessaview::gLidDoNothing(), generation == 2 && action == 0);

    ForgetTheStory(laptop);
    laptop.power.SetSchemeLidAction(false, action);
    laptop.power.Unplug();
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction), onPowerSource) << "of the scheme, on battery";
    EXPECT_EQ(laptop.trace.Contains(L"[LidClosedAction] is DC mode -> PowerReadDCValueIndex"), generation == 2);
  }
}

TEST(Lid, ASchemeThatCannotBeReadChangesNothing) {
  RunningLaptop laptop;
  laptop.faults.Fail<&os::ActivePowerScheme>({.error = 120, .times = 1});
  laptop.faults.Fail<&os::LidCloseActionOf>({.error = 2});
  laptop.power.Unplug();
  laptop.power.Plug();
  EXPECT_TRUE(LogsInOrder(laptop, {L"[LidClosedAction] PowerGetActiveScheme error=120\n",
                                   L"[LidClosedAction] is AC mode -> PowerReadACValueIndex",
                                   L"[LidClosedAction] PowerReadAC/DCValueIndex error=2\n"}));
  EXPECT_TRUE(laptop.firmware.Writes(Firmware::kLidCloseAction).empty());
}

}  // namespace

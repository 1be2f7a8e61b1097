// Lid, console display and what closing the lid does.

#include "tests/support.h"

namespace {

using namespace support;

TEST(Lid, ClosedThePanelIsNotShownAndMaskedOnlyWhereTheMachineGoesOn) {
  for (const bool goesOn : {false, true}) {
    RunningLaptop laptop({.uiRunning = true});
    laptop.power.SetLidAction(Power::LidAction::DoNothing);
    if (!goesOn) laptop.power.Unplug(), laptop.power.SetLidAction(Power::LidAction::Hibernate);
    laptop.power.CloseLid();
    EXPECT_EQ(laptop.ui.Received(), goesOn ? (Texts{L"POWEROFF", L"OPENMASK"}) : Texts{L"POWEROFF"});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
    ForgetTheStory(laptop);
    laptop.power.OpenLid();
    EXPECT_EQ(laptop.ui.Received(),
              goesOn ? (Texts{L"SETWALLPAPER", L"POWERON", L"CLOSEMASK"}) : (Texts{L"POWERON", L"CLOSEMASK"}));
  }
}

TEST(Lid, OpenedOverAVirtualMonitorOrTheDisplayOnNudgesThePanelIntoItsPlaceAndSwitchesItOn) {
  for (const bool byLid : {true, false}) {
    RunningLaptop laptop({.uiRunning = true});
    laptop.power.SetLidAction(Power::LidAction::DoNothing);
    byLid ? laptop.power.CloseLid() : laptop.power.SetDisplay(Power::Display::Off);
    laptop.displays.wallpaperPaths = {L"", L"\\\\?\\DISPLAY#TSB8888#a"};
    laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
    byLid ? laptop.power.OpenLid() : laptop.power.SetDisplay(Power::Display::On);
    EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 0);
    EXPECT_EQ(laptop.displays.SettingsChanges().size(), 2u) << "one pixel away, and back";
    EXPECT_TRUE(laptop.firmware.PanelOn());
  }
}

TEST(Lid, FirstNotificationsAreNoOpening) {
  Laptop laptop({.uiRunning = true});
  laptop.power.SetSchemeLidAction(true, 0);
  laptop.Boot();
  EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 0);
  EXPECT_GT(TimesTold(laptop, L"CLOSEMASK"), 0);
  laptop.power.SetDisplay(Power::Display::Off);
  laptop.power.SetDisplay(Power::Display::On);
  EXPECT_EQ(TimesTold(laptop, L"SETWALLPAPER"), 1);
}

TEST(Lid, TheMaskWaitsForTheUserWithoutATimeLimitAndHoldsUpNothing) {
  constexpr auto kCover = L"LockScreenControllerProxyWindow";
  RunningLaptop laptop({.uiRunning = true});
  const auto shell = laptop.desktop.Foreground();
  laptop.desktop.OpenInForeground({.className = kCover});
  laptop.power.SetDisplay(Power::Display::Off);
  laptop.power.SetDisplay(Power::Display::On);
  laptop.Advance(600'000);
  laptop.ui.Send(L"BLGET");
  EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 0);
  EXPECT_EQ(TimesTold(laptop, L"BLSET"), 1) << "commands are served meanwhile";
  laptop.desktop.SetForeground(os::WindowHandle::None);  // nothing covers the desktop either
  laptop.sessions.Unlock();
  EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 1);

  laptop.desktop.OpenInForeground({.className = kCover});
  laptop.power.CloseLid();
  laptop.power.OpenLid();
  laptop.power.CloseLid();
  laptop.desktop.SetForeground(shell);
  laptop.Advance(1000);
  EXPECT_EQ(TimesTold(laptop, L"CLOSEMASK"), 1) << "the lid is closed again";
}

TEST(Lid, WhatClosingItDoesIsToldToSecondGenerationFirmware) {
  constexpr std::uint32_t kNothing = 0, kSleep = 1, kHibernate = 2, kShutDown = 3, kTurnDisplayOff = 6;
  for (const auto& [generation, action, onChange, onPowerSource] : {std::tuple(2, kNothing, Words{0}, Words{0}),
                                                                    {2, kSleep, {}, {1}},
                                                                    {2, kHibernate, {1}, {1}},
                                                                    {2, kShutDown, {1}, {1}},
                                                                    {2, kTurnDisplayOff, {1}, {}},
                                                                    {1, kNothing, {}, {}}}) {
    RunningLaptop laptop({.generation = generation});
    laptop.power.Notify(os::PowerSetting::LidCloseAction, action);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction), onChange);
    ForgetTheStory(laptop);
    laptop.power.SetSchemeLidAction(false, action);
    laptop.power.Unplug();
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction), onPowerSource) << "of the scheme, on battery";
  }
}

}  // namespace

// Several users at one machine: the controller of one who is away leaves firmware and displays to the others.

#include "tests/support.h"

namespace {

using namespace support;

using Story = void (Sessions::*)();

/// What the machine tells every session, and what the user's own programs ask for meanwhile.
void LetThingsHappen(Laptop& laptop) {
  laptop.power.CloseLid();
  laptop.power.OpenLid();
  laptop.power.Unplug();
  laptop.power.SetLidAction(Power::LidAction::DoNothing);
  laptop.displays.cPanel().MoveTo(1920, 0);
  laptop.displays.Changed();
  laptop.input.PressWinP();
  laptop.hotKey.UseF6(3);
  laptop.hotKey.UseF6(2);
  laptop.ui.Send(L"BLSET", {.percent = 40});
  laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 30}});
  laptop.ui.Send(L"SETRESOLUTION", {.point = {960, 257}});
  laptop.sessions.End(0x1);  // ENDSESSION_CLOSEAPP
}

TEST(SeveralUsers, AnAbsentControllerLeavesTheMachineAloneAndCatchesUpWhenItIsBack) {
  for (const auto& stories : {std::vector<Story>{&Sessions::SwitchAway, &Sessions::SwitchBack},
                              {&Sessions::LoseConsole, &Sessions::SwitchBack},
                              {&Sessions::LoseConsoleUntold, &Sessions::IsPutBack},
                              {&Sessions::RemoteTakesOver, &Sessions::IsPutBack}}) {
    RunningLaptop laptop({.saved = L"On", .uiRunning = true});
    (laptop.sessions.*stories[0])();
    LetThingsHappen(laptop);
    EXPECT_EQ(laptop.firmware.WriteCount(), 0u);
    EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplaySettings>(), 0u);
    EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplayConfiguration>(), 0u);
    EXPECT_FALSE(laptop.touch.InCursorMode());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview") + laptop.settings.Text(L"BacklightDC"), L"On102");

    laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);  // as the other user liked it
    laptop.settings.Set(L"BacklightDC", L"77");
    (laptop.sessions.*stories[1])();
    EXPECT_TRUE(laptop.firmware.PanelOn());
    EXPECT_EQ(laptop.firmware.Backlight(), 77u);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction).at(0), 0u);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kRefreshRate), Words{0});
    EXPECT_EQ(laptop.displays.cPanel().Area(), kCPanel);
    EXPECT_EQ(LastPowerTold(laptop), L"POWERON");
    ForgetTheStory(laptop);
    laptop.sessions.Lock();
    laptop.sessions.Unlock();
    EXPECT_EQ(laptop.firmware.WriteCount(), 0u) << "nothing is left to catch up with";
  }
}

TEST(SeveralUsers, TheirSwitchesMayFallIntoTheMiddleOfAnything) {
  for (std::uint32_t ms = 0; ms < 4000; ms += 260) {
    Laptop laptop({.saved = L"On"});
    laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
    laptop.sessions.SwitchAway();
    laptop.After(ms, [&laptop] { laptop.sessions.SwitchBack(); });
    laptop.After(ms + 600, [&laptop] { laptop.sessions.SwitchToOneself(); });
    laptop.Boot();
    EXPECT_TRUE(laptop.firmware.PanelOn()) << ms;
    laptop.sessions.LogOff();
    EXPECT_TRUE(laptop.touch.InCursorMode());
    laptop.sessions.SignIn();
    EXPECT_TRUE(laptop.Boot());
  }
}

}  // namespace

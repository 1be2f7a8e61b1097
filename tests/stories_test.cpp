// Longer stretches of a laptop's life, told as its user sees them.

#include <gtest/gtest.h>

#include "tests/support.h"

namespace {

using sim::KernelObjects;
using support::LastTold;

constexpr auto kFactoryConfig = L"SOFTWARE\\NORV\\FactoryConfig";

TEST(Story, AWorkingDay) {
  sim::Laptop laptop;

  // Morning. The machine stands at the lock screen; the controller waits with the UI for the user.
  laptop.sessions.Lock();
  EXPECT_FALSE(laptop.Boot());
  EXPECT_FALSE(laptop.ui.Running());
  laptop.Advance(3'600'000);
  laptop.sessions.Unlock();
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.firmware.Backlight(), 116U);

  // The UI introduces itself.
  laptop.ui.Send(L"VERSION=3.1.7.0");
  EXPECT_EQ(LastTold(laptop).substr(0, 8), L"VERSION=");
  laptop.ui.Send(L"ALIVE");
  EXPECT_EQ(laptop.registry.Text(kFactoryConfig, L"OobeCompleted"), L"1");
  EXPECT_EQ(laptop.apps.Activations().size(), 2U);

  // At the desk half brightness is enough.
  laptop.ui.Send(L"BLSET", {.percent = 50});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"127");

  // Off to a meeting: on battery, bright for the others to see, until battery saver steps in.
  laptop.power.Unplug();
  EXPECT_EQ(laptop.firmware.Backlight(), 116U);
  laptop.ui.Send(L"BLSET", {.percent = 100});
  EXPECT_EQ(laptop.settings.Text(L"BacklightDC"), L"255");
  laptop.power.BatterySaver(true);
  EXPECT_EQ(laptop.firmware.Backlight(), 58U);
  laptop.ui.Send(L"BLGET");
  EXPECT_EQ(laptop.ui.ReceivedTexts().back().Percent(), 22);
  laptop.ui.Send(L"POWERSAVEROFF");
  EXPECT_EQ(laptop.firmware.Backlight(), 255U);

  // Some drawing on the panel.
  laptop.ui.ForgetReceived();
  laptop.touch.Contact(5);
  laptop.touch.Lift();
  EXPECT_EQ(laptop.ui.ReceivedReports().size(), 3U);

  // Back at the desk, and to lunch: locked, asleep, awake, unlocked.
  laptop.power.BatterySaver(false);
  laptop.power.Plug();
  laptop.sessions.Lock();
  laptop.power.Broadcast(sim::Power::kSuspend);
  laptop.Advance(3'600'000);
  laptop.power.Broadcast(sim::Power::kResumeAutomatic);
  laptop.sessions.Unlock();
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.firmware.Backlight(), 127U);

  // In the afternoon the panel is in the way: one press of F6.
  laptop.hotKey.PressF6();
  laptop.hotKey.EndF6(2);
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));

  // The day ends, and all that was opened on the way is closed.
  EXPECT_EQ(laptop.firmware.OpenHandles() + laptop.processes.OpenHandles() + laptop.apps.OpenManagers(), 0U);
  EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments(), 0U);
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  laptop.sessions.End(sim::Sessions::kLogOff);
  laptop.EndProcess();
  laptop.ui.Die();

  // The next morning everything is as it was left.
  EXPECT_TRUE(laptop.Boot());
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_EQ(LastTold(laptop), L"POWEROFF");
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"127");
  EXPECT_EQ(laptop.settings.Text(L"BacklightDC"), L"255");
  EXPECT_TRUE(laptop.trace.Malformed().empty());
}

}  // namespace

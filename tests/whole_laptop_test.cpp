// The life of a laptop, told from beginning to end: what the person before it sees, and what the machine's other
// software does. Each story runs through all of the controller.

#include "tests/support.h"

namespace {

using namespace support;

constexpr std::uint32_t kSecondMs = 1000, kMinuteMs = 60 * kSecondMs, kHourMs = 60 * kMinuteMs;

TEST(WholeLaptop, TheFirstEveningSetupIsFinishedLateAndTheUiComesByItself) {
  Laptop laptop({.setupComplete = false});
  const auto setup = laptop.desktop.OpenInForeground({.className = kCoreClass, .title = L"Setup"});
  laptop.Boot();
  laptop.Advance(kHourMs);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the factory's choice";
  EXPECT_TRUE(laptop.apps.Activations().empty()) << "nothing is launched into the setup";

  laptop.sessions.FinishSetup();
  laptop.Advance(kHourMs);
  EXPECT_FALSE(laptop.ui.Running()) << "the desktop is not there yet, and waited for without a time limit";
  laptop.desktop.Close(setup);
  laptop.Advance(kMinuteMs);
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(WholeLaptop, InAShopItComesBackByItself) {
  Laptop laptop({.saved = L"On", .uiRunning = true});
  laptop.services.Set(L"RetailDemo", sim::Services::kRunning);
  laptop.Boot();
  laptop.ui.Send(L"ALIVE");
  laptop.hotKey.UseF6(2);
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  laptop.Advance(5 * kMinuteMs + kSecondMs);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent)) << "five minutes after a customer switched it off";
  EXPECT_EQ(laptop.input.LeftClicks(), 1);
  EXPECT_EQ(laptop.hotKey.Received().back().wParam, 1u) << "and the touch pad with it";
  laptop.Advance(6 * kMinuteMs);
  EXPECT_EQ(laptop.input.LeftClicks(), 1) << "once";

  laptop.displays.UserProjects(Topology::Clone);
  const auto launches = laptop.apps.Activations().size();
  laptop.Advance(170'000);
  EXPECT_EQ(laptop.displays.topology, Topology::Clone);
  laptop.Advance(20'000);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend) << "three minutes after one duplicated the desktop";
  EXPECT_EQ(laptop.input.LeftClicks(), 2);
  EXPECT_GT(laptop.apps.Activations().size(), launches);
  laptop.Advance(6 * kMinuteMs);
  EXPECT_EQ(laptop.input.LeftClicks(), 2);
}

TEST(WholeLaptop, SetupFinishedDuringStartUpBringsTheUiOnceStartUpIsReadyForIt) {
  Laptop laptop({.setupComplete = false});
  laptop.faults.Slow<&os::EnableHidNode>(kSecondMs);
  laptop.After(kSecondMs, [&laptop] { laptop.sessions.FinishSetup(); });
  laptop.Boot();
  EXPECT_TRUE(LogsInOrder(laptop, {L"isOOBEComplete = 1 \n", L" Found Package \n", L" Launch UWP \n"}));
  EXPECT_EQ(laptop.apps.Activations().size(), 1U);
}

/// Its process may be ended in the middle of whatever it does.
TEST(WholeLaptop, EndedAtAnyMomentItStartsAgainWithTheUsersChoices) {
  for (std::uint32_t moment = 0; moment < 60; ++moment) {
    SCOPED_TRACE(moment);
    Laptop laptop({.seed = moment + 1, .interleaving = true, .backlight = 200, .saved = L"Off"});
    const auto window = laptop.desktop.OpenInForeground({});
    laptop.After(100, [&laptop] { laptop.input.PressWinP(); });
    laptop.After(700, [&laptop, window] { laptop.mouse.DragTitleBar(window, {500, 110}, {900, 1300}); });
    laptop.After(1500, [&laptop] { laptop.processes.End(laptop.processes.IdOf(kUiProgram)); });
    laptop.Boot(moment * 37);
    laptop.EndProcess();

    ASSERT_TRUE(laptop.Boot());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"200");
  }
}

}  // namespace

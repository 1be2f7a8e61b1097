// The life of a laptop, told from beginning to end: what the person before it sees, and what the machine's other
// software does. Each story runs through all of the controller.

#include "tests/support.h"

namespace {

using namespace support;

constexpr std::uint32_t kSecondMs = 1000, kMinuteMs = 60 * kSecondMs, kHourMs = 60 * kMinuteMs;
constexpr auto kUiProgram = L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster\\NorvTessaview.exe";

/// A laptop in use: started, its UI up and ready.
class LaptopInUse : public sim::Laptop {
 public:
  explicit LaptopInUse(int machineGeneration = 2) : Laptop({.saved = L"On", .generation = machineGeneration}) {
    Boot();
    Advance(10 * kSecondMs);
    ui.Send(L"ALIVE");
  }

  [[nodiscard]] bool IsPanelBelow() {
    const auto b = displays.bPanel().Area(), c = displays.cPanel().Area();
    return c.top == b.bottom && c.left - b.left == b.right - c.right && displays.cPanel().orientation == 3;
  }
};

TEST(WholeLaptop, TheFirstEveningSetupIsFinishedLateAndTheUiComesByItself) {
  sim::Laptop laptop({.setupComplete = false});
  const auto setup = laptop.desktop.OpenInForeground({.className = L"Windows.UI.Core.CoreWindow", .title = L"Setup"});
  laptop.Boot();
  laptop.Advance(kHourMs);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the factory's choice";
  EXPECT_TRUE(laptop.apps.Activations().empty()) << "nothing is launched into the setup";

  laptop.sessions.FinishSetup();
  laptop.Advance(kMinuteMs);
  EXPECT_FALSE(laptop.ui.Running()) << "the desktop is not there yet";
  laptop.desktop.Close(setup);
  laptop.Advance(kMinuteMs);
  EXPECT_TRUE(laptop.ui.Running());
  laptop.ui.Send(L"ALIVE");
  EXPECT_EQ(laptop.registry.Text(sim::Registry::kFactoryConfig, L"OobeCompleted"), L"1");
  laptop.displays.Changed();
  EXPECT_EQ(LastPowerTold(laptop), L"POWERON");
}

TEST(WholeLaptop, AWorkingDay) {
  LaptopInUse laptop;

  // In the morning the panel is set to half its light, on mains; in the train the battery dims it.
  laptop.ui.Send(L"BLSET", {.percent = 50});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"127");
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  EXPECT_EQ(laptop.firmware.Backlight(), 58U);
  laptop.power.Plug();
  EXPECT_EQ(laptop.firmware.Backlight(), 127U);

  // A document is thrown down to the panel, worked on there by touch, and fetched back by the UI's arrow.
  const auto document = laptop.desktop.OpenInForeground({.title = L"Report", .area = {300, 200, 1100, 700}});
  laptop.mouse.Grab(document, {500, 210});
  laptop.mouse.Glide({700, 400});
  laptop.mouse.Glide({575, 310});
  laptop.mouse.Drop();
  EXPECT_GE(laptop.desktop.Find(document)->area.top, 1080);
  laptop.touch.Contact(5);
  laptop.touch.Lift();
  EXPECT_EQ(laptop.ui.ReceivedReports().size(), 3U);
  laptop.ui.Send(L"TOUCH", {.point = {900, 1300}});
  EXPECT_EQ(LastTold(laptop), L"UP");
  laptop.ui.Send(L"UP");
  EXPECT_LT(laptop.desktop.Find(document)->area.top, 1080);

  // Over lunch F6 turns the panel into a touch pad, and afterwards back.
  laptop.hotKey.UseF6(2);
  EXPECT_EQ(LastPowerTold(laptop), L"POWEROFF");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  laptop.hotKey.UseF6(3, 2);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent));

  // In the evening the user signs out: the surface is left as a touch pad for whoever comes.
  laptop.sessions.End(0x8000'0000);
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.mouse.LongestHoldUpMs(), 0U);
}

TEST(WholeLaptop, DockedUndockedAsleepAndHibernated) {
  LaptopInUse laptop;
  auto& monitor = laptop.displays.AddMonitor({.plugged = false, .attached = false, .x = 1920});
  laptop.displays.Dock(monitor);
  EXPECT_TRUE(laptop.IsPanelBelow());
  laptop.displays.UserProjects(Topology::Clone);
  EXPECT_EQ(LastPowerTold(laptop), L"POWEROFF");
  laptop.displays.UserProjects(Topology::Extend);
  laptop.displays.Undock(monitor);
  EXPECT_TRUE(laptop.IsPanelBelow());
  EXPECT_EQ(LastPowerTold(laptop), L"POWERON");

  laptop.power.CloseLid();
  EXPECT_EQ(LastPowerTold(laptop), L"POWEROFF");
  laptop.power.SleepAndWake();
  laptop.power.OpenLid();
  EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 0);

  laptop.power.HibernateAndWake();
  EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 1);
  EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
  EXPECT_TRUE(laptop.IsPanelBelow());
}

TEST(WholeLaptop, TheUiCrashesIsUpdatedAndComesBack) {
  LaptopInUse laptop;
  laptop.trace.Clear();
  laptop.processes.End(laptop.processes.IdOf(kUiProgram));
  laptop.Advance(5 * kMinuteMs + 2 * kSecondMs);
  EXPECT_TRUE(laptop.ui.Running()) << "five minutes after the crash";
  laptop.Advance(2 * kMinuteMs);

  // An update ends it, takes it away and puts a newer one in its place, which is there at once.
  laptop.processes.End(laptop.processes.IdOf(kUiProgram));
  laptop.After(0, [&laptop] { laptop.apps.RemoveUi(); });
  laptop.Advance(20 * kSecondMs);
  EXPECT_FALSE(laptop.ui.Running());
  laptop.After(0, [&laptop] { laptop.apps.InstallUi(); });
  laptop.Advance(5 * kSecondMs);
  EXPECT_TRUE(laptop.ui.Running());
  laptop.ui.Send(L"ALIVE");
  laptop.ui.Send(L"VERSION=2.0");
  laptop.Advance(10 * kMinuteMs);
  EXPECT_EQ(laptop.trace.Usage(), (Texts{L"UI_EXIST_WITH_CHECKING_TIMES_1", L"UI_EXIST_WITH_CHECKING_TIMES_0"}));
}

TEST(WholeLaptop, InAShopItComesBackByItself) {
  sim::Laptop laptop({.saved = L"On"});
  laptop.services.Set(L"RetailDemo", sim::Services::kRunning);
  laptop.processes.Run(L"C:\\Shop\\RoVaN_Watchdog.exe");
  laptop.Boot();
  laptop.Advance(10 * kSecondMs);
  laptop.ui.Send(L"ALIVE");
  laptop.hotKey.UseF6(2);
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  laptop.Advance(5 * kMinuteMs + kSecondMs);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent)) << "five minutes after a customer switched it off";
  EXPECT_EQ(laptop.input.LeftClicks(), 1);
  EXPECT_FALSE(laptop.window.TimerPeriod(9527)) << "once";
  EXPECT_EQ(laptop.hotKey.Received().back().wParam, 1u) << "and the touch pad with it";

  laptop.displays.UserProjects(Topology::Clone);
  laptop.Advance(3 * kMinuteMs + 5 * kSecondMs);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend);
}

TEST(WholeLaptop, OnlyTheFirstGenerationIsSwitchedOffByPcScreenOnlyAndKnowsNoLidAction) {
  for (const int generation : {1, 2}) {
    SCOPED_TRACE(generation);
    sim::Laptop laptop({.saved = L"On", .generation = generation, .uiRunning = true});
    laptop.displays.Project(Topology::Internal);
    laptop.Boot();
    EXPECT_EQ(laptop.touch.InCursorMode(), generation == 1);
    laptop.power.SetLidAction(sim::Power::LidAction::DoNothing);
    laptop.power.CloseLid();
    EXPECT_EQ(TimesTold(laptop, L"OPENMASK"), generation == 1 ? 0 : 1);
  }
}

/// Its process may be ended in the middle of whatever it does.
TEST(WholeLaptop, EndedAtAnyMomentItStartsAgainWithTheUsersChoices) {
  for (std::uint32_t moment = 0; moment < 60; ++moment) {
    SCOPED_TRACE(moment);
    sim::Laptop laptop({.seed = moment + 1, .interleaving = true, .backlight = 200, .saved = L"Off"});
    const auto window = laptop.desktop.OpenInForeground({});
    laptop.After(100, [&laptop] { laptop.input.PressWinP(); });
    laptop.After(700, [&laptop, window] { laptop.mouse.DragTitleBar(window, {500, 110}, {900, 1300}); });
    laptop.After(1500, [&laptop] { laptop.processes.End(laptop.processes.IdOf(kUiProgram)); });
    laptop.Boot(moment * 37);
    laptop.EndProcess();

    ASSERT_TRUE(laptop.Boot());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"200");
    laptop.ui.Start();
    laptop.ui.ForgetReceived();
    laptop.ui.Send(L"BLGET");
    EXPECT_EQ(LastTold(laptop), L"BLSET");
  }
}

}  // namespace

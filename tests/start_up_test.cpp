#include "os/device_io.h"
#include "os/messages.h"
#include "tests/support.h"

namespace {

using namespace support;

TEST(StartUp, TakesItsStepsInOrder) {
  Laptop laptop;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(LogsInOrder(
      laptop,
      {L" ******* Start TessaviewService ******* \n",
       L"[InitialDisplay] Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515 \n",
       L"[InitGenerationCheck] Generation is G2", L"UnRegisterRawInputDevice Success \n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L" ******* Tessaview ini Setting (Start) ******* \n",
       L" Create ini file success \n", L"Read ini file = Tessaview Power On \n", L"isOOBEComplete = 1 \n",
       L" Found Package \n", L" Launch UWP \n", L"Find TouchPad Vid & Pid Success!\n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L"The computer is powered by an AC power source. \n"}));
  EXPECT_TRUE(laptop.trace.Malformed().empty());
}

TEST(StartUp, LeavesAWindowThatHearsAllItHasToAndShutDownTakesThatBack) {
  const auto padStatus = os::RegisterMessage(L"Touchpad status reported from ZRVHotkey");
  Laptop laptop({.setupComplete = false});
  laptop.faults.Fail<&os::RegisterPowerSetting>({.times = 1});
  EXPECT_TRUE(laptop.Boot());
  const auto* window = laptop.desktop.Find(laptop.desktop.Find(L"TESSAVIEWSERVICE", L"TessaviewServiceTitle"));
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->visible);
  EXPECT_TRUE(laptop.window.SeesScalePerMonitor());
  EXPECT_TRUE(laptop.events.HoldsMutex(L"Mutex_TessaviewService"));
  constexpr std::uint32_t kCopyData = 0x004A;
  const auto hotKey = os::RegisterMessage(L"ACPI Notification through ZRVHotkey from BIOS");
  for (const auto message : {kCopyData, hotKey, padStatus}) EXPECT_TRUE(laptop.window.LetsThrough(message)) << message;
  EXPECT_EQ(laptop.power.Registrations(), 4U) << "all but one, which failed";
  EXPECT_TRUE(laptop.window.HearsOfSessions());
  EXPECT_TRUE(laptop.sessions.SetupWaitRegistered());
  EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
  const auto self = static_cast<std::int64_t>(laptop.window.Handle());
  EXPECT_EQ(laptop.hotKey.Received(), (std::vector{sim::PostedMessage{padStatus, 2, self}}));

  constexpr std::uint32_t kClose = 0x0010;
  laptop.window.PostRaw(kClose, 0, 0);
  laptop.Settle();
  EXPECT_EQ(laptop.ExitCode(), 0);
  EXPECT_EQ(laptop.power.Registrations(), 0U);
  EXPECT_EQ(laptop.faults.Calls<&os::UnregisterPowerSetting>(), 4U);
  EXPECT_FALSE(laptop.sessions.SetupWaitRegistered() || laptop.window.HearsOfSessions());
}

TEST(StartUp, LeavesAtOnceAndTouchesNothingBesideAnotherInstanceOrWithoutAWindow) {
  for (const bool second : {true, false}) {
    Laptop laptop;
    if (second) laptop.events.HoldElsewhere(L"Mutex_TessaviewService");
    if (!second) laptop.faults.Fail<&os::CreateServiceWindow>();
    laptop.Boot();
    EXPECT_EQ(laptop.ExitCode(), 0);
    EXPECT_FALSE(laptop.window.Exists() || laptop.settings.Exists());
    EXPECT_TRUE(laptop.touch.NodeSwitches().empty() && laptop.processes.Starts().empty());
    EXPECT_EQ(laptop.events.OpenHandles(), 0U);
  }
}

TEST(StartUp, AppliesThePowerTheUserChoseAndPublishesIt) {
  for (const bool on : {true, false}) {
    Laptop laptop({.saved = on ? L"On" : L"Off", .uiRunning = true});
    laptop.events.Signal(KernelObjects::kPowerEvent, !on);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.PanelOn(), on);
    EXPECT_GT(TimesTold(laptop, on ? L"POWERON" : L"POWEROFF"), 0);
    EXPECT_EQ(TimesTold(laptop, on ? L"POWEROFF" : L"POWERON"), 0);
    EXPECT_EQ(laptop.events.Signalled(KernelObjects::kPowerEvent), on);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  }
}

TEST(StartUp, PublishesNothingWithoutAChoice) {
  for (const bool published : {true, false}) {
    Laptop laptop({.saved = L"on"});
    laptop.settings.SetReadOnly();  // so that the value stays what it is
    laptop.events.Signal(KernelObjects::kPowerEvent, published);
    laptop.Boot();
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kPower).empty());
    EXPECT_EQ(laptop.events.Signalled(KernelObjects::kPowerEvent), published);
  }
}

TEST(StartUp, TakesTheFirstPowerNotificationsForThePresentState) {
  Laptop laptop({.backlight = 200, .backlightDC = 90});
  laptop.power.Unplug();
  for (const bool saver : {false, true}) {
    laptop.power.BatterySaver(saver);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.Backlight(), saver ? 58U : 90U);
  }
}

TEST(PcScreenOnly, SwitchesThePanelOffAtTheStartOfAFirstGenerationMachine) {
  struct Machine {
    int generation = 1;
    Topology topology = Topology::Internal;
    bool setupComplete = true, isSwitchedOff = false;
  };
  for (const auto& machine : {Machine{.isSwitchedOff = true}, Machine{.generation = 2},
                              Machine{.topology = Topology::Extend}, Machine{.setupComplete = false}}) {
    Laptop laptop(
        {.saved = L"On", .generation = machine.generation, .setupComplete = machine.setupComplete, .uiRunning = true});
    laptop.displays.Project(machine.topology);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), machine.isSwitchedOff ? Words{0} : Words{});
    EXPECT_EQ(laptop.touch.InCursorMode(), machine.isSwitchedOff);
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the user chose nothing else";
  }
}

// The driver refuses one opening after the other: where it is that of the power-off, the rest happens all the same.
TEST(PcScreenOnly, TellsTheUiAndThePadEvenWhenTheFirmwareCannotBeOpened) {
  int refusedPowerOffs = 0;
  for (std::uint32_t opened = 0; opened < 12; ++opened) {
    Laptop laptop({.saved = L"On", .generation = 1, .uiRunning = true});
    laptop.displays.Project(Topology::Internal);
    laptop.faults.Fail<&os::OpenDevice>({.times = 1, .after = opened});
    laptop.Boot();
    if (LastTold(laptop) != L"POWEROFF" || !laptop.touch.InCursorMode()) continue;  // it could not tell its generation
    if (laptop.firmware.Writes(Firmware::kPower).empty()) ++refusedPowerOffs;
  }
  EXPECT_EQ(refusedPowerOffs, 1);
}

}  // namespace

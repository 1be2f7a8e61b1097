#include "os/device_io.h"
#include "os/messages.h"
#include "tests/support.h"

namespace {

using namespace support;

TEST(StartUp, TakesItsStepsInOrder) {
  sim::Laptop laptop;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(LogsInOrder(
      laptop,
      {L" ******* Start TessaviewService ******* \n",
       L"[InitialDisplay] Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515 \n",
       L"[InitGenerationCheck] Generation is G2", L"UnRegisterRawInputDevice Success \n", L"Dissable Device Success\n",
       L"Enable Device Success\n", L"Find TouchPad Vid & Pid Success!\n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L" ******* Tessaview ini Setting (Start) ******* \n",
       L" Create ini file success \n", L"Read ini file = Tessaview Power On \n", L"isOOBEComplete = 1 \n",
       L" Found Package \n", L" Launch UWP \n", L"Find TouchPad Vid & Pid Success!\n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L"The computer is powered by an AC power source. \n"}));
  EXPECT_TRUE(laptop.trace.Malformed().empty());
}

TEST(StartUp, LeavesAWindowThatHearsAllItHasTo) {
  const auto padStatus = os::RegisterMessage(L"Touchpad status reported from ZRVHotkey");
  sim::Laptop laptop;
  EXPECT_TRUE(laptop.Boot());
  const auto* window = laptop.desktop.Find(laptop.desktop.Find(L"TESSAVIEWSERVICE", L"TessaviewServiceTitle"));
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->visible);
  EXPECT_TRUE(laptop.window.SeesScalePerMonitor());
  EXPECT_TRUE(laptop.events.HoldsMutex(L"Mutex_TessaviewService"));
  EXPECT_EQ(laptop.window.TimerPeriod(9487), 3'600'000U);
  for (const auto message :
       {0x004AU, os::RegisterMessage(L"ACPI Notification through ZRVHotkey from BIOS"), padStatus}) {
    EXPECT_TRUE(laptop.window.LetsThrough(message)) << message;
  }
  EXPECT_EQ(laptop.power.Registrations(), 5U);
  EXPECT_TRUE(laptop.window.HearsOfSessions());
  EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
  const auto self = static_cast<std::int64_t>(laptop.window.Handle());
  EXPECT_EQ(laptop.hotKey.Received(), (std::vector{sim::PostedMessage{padStatus, 2, self}}));
}

TEST(StartUp, LeavesAtOnceAndTouchesNothingBesideAnotherInstanceOrWithoutAWindow) {
  for (const bool second : {true, false}) {
    SCOPED_TRACE(second);
    sim::Laptop laptop;
    if (second) laptop.events.HoldElsewhere(L"Mutex_TessaviewService");
    if (!second) laptop.faults.Fail<&os::CreateServiceWindow>();
    laptop.Boot();
    EXPECT_EQ(laptop.ExitCode(), 0);
    EXPECT_FALSE(laptop.window.Exists());
    EXPECT_FALSE(laptop.settings.Exists());
    EXPECT_TRUE(laptop.touch.NodeSwitches().empty());
    EXPECT_TRUE(laptop.processes.Starts().empty());
    EXPECT_TRUE(laptop.hotKey.Received().empty());
    EXPECT_EQ(laptop.events.OpenHandles(), 0U);
  }
}

TEST(StartUp, ShutDownTakesBackEveryRegistrationAndTheNextStartMakesThemAgain) {
  sim::Laptop laptop({.setupComplete = false});
  laptop.Boot();
  ASSERT_TRUE(laptop.sessions.SetupWaitRegistered());

  laptop.window.PostRaw(0x0010, 0, 0);  // WM_CLOSE, which ends in WM_DESTROY
  laptop.Settle();
  EXPECT_EQ(laptop.ExitCode(), 0);
  EXPECT_EQ(laptop.power.Registrations(), 0U);
  EXPECT_FALSE(laptop.sessions.SetupWaitRegistered());
  EXPECT_FALSE(laptop.window.HearsOfSessions());

  laptop.sessions.setupComplete = true;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.power.Registrations(), 5U);
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(StartUp, TakesSetupForUnfinishedWhenTheSystemCannotTell) {
  Laptop laptop;
  laptop.faults.Fail<&os::IsSetupComplete>();
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.trace.Contains(L"isOOBEComplete = 0 \n"));
  EXPECT_TRUE(laptop.processes.Starts().empty());
}

TEST(StartUp, WaitsForTheUsersDesktopWithoutATimeLimitAndServesWhatCameMeanwhile) {
  for (const auto* const cover : {L"Windows.UI.Core.CoreWindow", L"BootAppClass"}) {
    SCOPED_TRACE(testing::PrintToString(cover));
    sim::Laptop laptop;
    const auto shell = laptop.desktop.Foreground();
    laptop.desktop.OpenInForeground({.className = cover});
    EXPECT_FALSE(laptop.Boot()) << "ten minutes are not enough";
    EXPECT_TRUE(laptop.processes.Starts().empty());
    laptop.ui.Send(L"BLGET");

    laptop.desktop.SetForeground(shell);
    EXPECT_TRUE(laptop.Settle());
    EXPECT_EQ(TimesTold(laptop, L"BLSET"), 1);
  }
}

TEST(StartUp, AppliesThePowerTheUserChoseIfAnyAndPublishesIt) {
  using Case = std::tuple<const wchar_t*, bool, bool, bool>;
  for (const auto& [saved, wasSignalled, panelOn, signalled] : {Case{L"On", false, true, true},
                                                                {L"Off", true, false, false},
                                                                {L"on", false, true, false},  // no choice
                                                                {L"on", true, true, true}}) {
    SCOPED_TRACE(testing::PrintToString(saved));
    sim::Laptop laptop({.saved = saved, .uiRunning = true});
    const bool choice = std::wstring(saved) != L"on";
    if (!choice) laptop.settings.SetReadOnly();  // so that the value stays what it is
    laptop.events.Signal(KernelObjects::kPowerEvent, wasSignalled);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.PanelOn(), panelOn);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower).empty(), panelOn);
    if (choice) EXPECT_GT(TimesTold(laptop, panelOn ? L"POWERON" : L"POWEROFF"), 0);
    if (choice) EXPECT_EQ(TimesTold(laptop, panelOn ? L"POWEROFF" : L"POWERON"), 0);
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), saved);
    EXPECT_EQ(laptop.events.Signalled(KernelObjects::kPowerEvent), signalled);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  }
}

TEST(StartUp, TakesTheFirstPowerNotificationsForThePresentState) {
  using Case = std::tuple<bool, bool, std::uint32_t>;
  for (const auto& [onMains, saver, backlight] : {Case{true, false, 200}, {false, false, 90}, {false, true, 58}}) {
    sim::Laptop laptop({.backlight = 200, .backlightDC = 90, .uiRunning = true});
    if (!onMains) laptop.power.Unplug();
    laptop.power.BatterySaver(saver);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.Backlight(), backlight);
  }
}

TEST(PcScreenOnly, SwitchesThePanelOffAtTheStartOfAFirstGenerationMachine) {
  sim::Laptop laptop({.saved = L"On", .generation = 1, .uiRunning = true});
  laptop.displays.Project(Topology::Internal);
  EXPECT_TRUE(laptop.Boot());

  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0});
  EXPECT_EQ(LastTold(laptop), L"POWEROFF");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the user chose nothing else";
  EXPECT_TRUE(LogsInOrder(laptop, {L"isOOBEComplete = 1 \n", L"Tessaview power off \n", L"Set cursor mode \n"}));
}

TEST(PcScreenOnly, LeavesAllOtherMachinesAlone) {
  using Case = std::tuple<const char*, int, Topology, bool>;
  for (const auto& [story, generation, topology, setupComplete] :
       {Case{"a machine of the second generation", 2, Topology::Internal, true},
        {"extended", 1, Topology::Extend, true},
        {"second screen only", 1, Topology::External, true},
        {"still in setup", 1, Topology::Internal, false}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop({.saved = L"On", .generation = generation, .setupComplete = setupComplete});
    laptop.displays.Project(topology);
    laptop.Boot();
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kPower).empty());
    EXPECT_FALSE(laptop.touch.InCursorMode());
  }
}

// The driver refuses one opening after the other: where it is that of the power-off, the rest happens all the same.
TEST(PcScreenOnly, TellsTheUiAndThePadEvenWhenTheFirmwareCannotBeOpened) {
  int refusedPowerOffs = 0;
  for (std::uint32_t opened = 0; opened < 12; ++opened) {
    SCOPED_TRACE(opened);
    sim::Laptop laptop({.saved = L"On", .generation = 1, .uiRunning = true});
    laptop.displays.Project(Topology::Internal);
    laptop.faults.Fail<&os::OpenDevice>({.times = 1, .after = opened});
    laptop.Boot();
    if (!laptop.trace.Contains(L"Set cursor mode \n")) continue;  // it could not tell its generation
    EXPECT_EQ(LastTold(laptop), L"POWEROFF");
    EXPECT_TRUE(laptop.touch.InCursorMode());
    if (laptop.firmware.Writes(Firmware::kPower).empty()) ++refusedPowerOffs;
  }
  EXPECT_EQ(refusedPowerOffs, 1);
}

}  // namespace

#include "tests/support.h"

namespace {

using namespace support;

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
  constexpr auto kMutex = L"Mutex_TessaviewService";
  for (const auto arrange :
       {+[](Laptop& l) { l.events.HoldElsewhere(kMutex); }, +[](Laptop& l) { l.events.DenyElsewhere(kMutex); },
        +[](Laptop& l) { l.faults.Fail<&os::CreateServiceWindow>(); }}) {
    Laptop laptop;
    arrange(laptop);
    laptop.Boot();
    EXPECT_EQ(laptop.ExitCode(), 0);
    const bool asked = laptop.faults.Calls<&os::CreateServiceWindow>() > 0;
    EXPECT_EQ(laptop.trace.Contains(L"[Failure] The window cannot be created, error = 31 (0x1F) \n"), asked);
    EXPECT_FALSE(laptop.window.Exists() || laptop.settings.Exists());
    EXPECT_TRUE(laptop.touch.NodeSwitches().empty() && laptop.processes.Starts().empty());
    EXPECT_EQ(laptop.events.OpenHandles(), 0U);
  }
  Laptop alone;
  alone.events.Add(kMutex);
  EXPECT_TRUE(alone.Boot() && !alone.ExitCode()) << "somebody's event is no instance";
  EXPECT_TRUE(alone.trace.Contains(L"[Instance] The mutex cannot be opened, error = 6 \n"));
}

/// Starts a laptop on which these doors fail. The log has a line of the controller's own for each that did.
template <auto... Doors>
void ExpectTold(std::initializer_list<const wchar_t*> what) {
  Laptop laptop;
  (laptop.faults.Fail<Doors>({.error = 1450, .times = 30}), ...);
  laptop.Boot();
  for (const std::wstring sentence : what) {
    EXPECT_TRUE(laptop.trace.Contains(L"[Failure] " + sentence + L", error = 1450 (0x5AA) \n"))
        << testing::PrintToString(sentence);
  }
}

TEST(StartUp, SaysWhatCouldNotBeSetUp) {
  ExpectTold<&os::BecomePerMonitorDpiAware, &os::AllowMessage, &os::RegisterPowerSetting, &os::RegisterSessionEvents,
             &os::WatchKeyboard, &os::WatchMouse, &os::WatchWindowEvents, &os::WatchRegistryKey, &os::WatchSystemLog,
             &os::OpenDevice, &os::OpenHid, &os::JoinCom, &os::JoinComMultithreaded>(
      {L"The process cannot see the monitors' scales", L"The window cannot let a message through",
       L"A power setting cannot be followed", L"The session cannot be followed", L"The keyboard cannot be watched",
       L"The mouse cannot be watched", L"The drags of windows cannot be watched",
       L"The window in front cannot be watched", L"Switches of the desktop cannot be watched",
       L"The installed packages cannot be watched", L"The system's log cannot be watched",
       L"The firmware cannot be opened", L"A collection of the touch controller cannot be opened",
       L"The HID collection cannot be opened", L"The thread cannot join COM", L"The watchdog cannot join COM"});
  ExpectTold<&os::RegisterServiceWindowClass>({L"The window class cannot be registered"});
  ExpectTold<&os::InitializeComSecurity, &os::CreateActivationManager>(
      {L"The process cannot set its COM security", L"The activation manager cannot be had"});
  ExpectTold<&os::CreateManagementLocator, &os::ActivateApplication>(
      {L"The way to Windows management cannot be had", L"The application cannot be activated"});
  ExpectTold<&os::IsSetupComplete, &os::ConnectToManagement>(
      {L"The state of Windows' setup cannot be told", L"Windows management cannot be connected to"});
  ExpectTold<&os::SetManagementBlanket, &os::SubscribeToProcessStops>(
      {L"Calls of Windows management cannot be secured", L"Ended processes cannot be asked for"});
}

TEST(StartUp, InAShopAPanelThatIsOffComesBackAfterFiveMinutes) {
  constexpr std::uint32_t kPeriodMs = 300'000;
  for (const auto& [saved, isShop] : {std::pair(L"Off", false), {L"On", true}, {L"Off", true}}) {
    Laptop laptop({.saved = saved});
    if (isShop) laptop.services.Set(L"RetailDemo", sim::Services::kRunning);
    laptop.displays.Project(Topology::Internal);
    laptop.Boot();
    const bool comesBack = isShop && saved[1] == L'f';
    EXPECT_EQ(laptop.window.TimerPeriod(9527), comesBack ? std::optional(kPeriodMs) : std::nullopt);
    if (!comesBack) continue;
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.Advance(kPeriodMs - 30'000);
    EXPECT_FALSE(laptop.input.LeftClicks() != 0 || laptop.events.Signalled(KernelObjects::kPowerEvent));
    laptop.Advance(40'000);
    EXPECT_EQ(laptop.displays.topology, Topology::Extend);
    EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent) && laptop.input.LeftClicks() == 1);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent) || laptop.window.TimerPeriod(9527));
    EXPECT_EQ(laptop.hotKey.Received().back().wParam, 1U) << "the touch pad is wanted on";
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

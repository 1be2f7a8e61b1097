#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "os/messages.h"
#include "sim/laptop.h"
#include "tests/support.h"

namespace {

using sim::Displays;
using sim::Firmware;
using sim::KernelObjects;
using support::LastTold;
using support::LogsInOrder;

constexpr std::uint32_t kCopyData = 0x004A;
constexpr std::uint64_t kRetailDemoTimer = 9527;

// ---- What start-up does, and in which order ----

TEST(StartUp, TakesItsStepsInOrder) {
  sim::Laptop laptop;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.trace.IndexOf(L" ******* Start TessaviewService ******* \n"), 1U)
      << "only the reading of the panels' ids comes before";
  EXPECT_TRUE(LogsInOrder(
      laptop,
      {L" ******* Start TessaviewService ******* \n",
       L"[InitialDisplay] Global gCPanel X: 0, Y: 1080, Wdith: 1920, Height: 515 \n",
       L"[InitGenerationCheck] Generation is G2", L"UnRegisterRawInputDevice Success \n", L"Dissable Device Success\n",
       L"Enable Device Success\n", L"Find TouchPad Vid & Pid Success!\n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L" ******* Tessaview ini Setting (Start) ******* \n",
       L" Create ini file success \n",
       L"Setting path =  C:\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra\\"
       L"TessaviewSetting.ini \n ",
       L" ******* Tessaview ini Setting (End) ******* \n", L"Read ini file = Tessaview Power On \n",
       L"isOOBEComplete = 1 \n", L" Found Package \n", L" Launch UWP \n", L"Find TouchPad Vid & Pid Success!\n",
       L"Get Rawinput hDevice of CPanel_TouchPad successed\n", L"The computer is powered by an AC power source. \n"}));
  EXPECT_TRUE(laptop.trace.Malformed().empty());
}

TEST(StartUp, LeavesAWindowThatHearsAllItHasTo) {
  sim::Laptop laptop;
  EXPECT_TRUE(laptop.Boot());

  const auto* window = laptop.desktop.Find(laptop.desktop.Find(L"TESSAVIEWSERVICE", L"TessaviewServiceTitle"));
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->visible);
  EXPECT_TRUE(laptop.window.SeesScalePerMonitor());
  EXPECT_TRUE(laptop.events.HoldsMutex(L"Mutex_TessaviewService"));
  EXPECT_EQ(laptop.window.TimerPeriod(9487), 3'600'000U);
  for (const auto message : {kCopyData, os::RegisterMessage(L"ACPI Notification through ZRVHotkey from BIOS"),
                             os::RegisterMessage(L"Touchpad status reported from ZRVHotkey")}) {
    EXPECT_TRUE(laptop.window.LetsThrough(message)) << message;
  }
  EXPECT_EQ(laptop.power.Registrations(), 5U);
  EXPECT_TRUE(laptop.window.HearsOfSessions());
  EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_EQ(laptop.ExitCode(), std::nullopt);
}

TEST(StartUp, AsksTheHotKeyComponentForTheTouchPadsStatus) {
  sim::Laptop laptop;
  laptop.Boot();
  const sim::PostedMessage subscription{.message = os::RegisterMessage(L"Touchpad status reported from ZRVHotkey"),
                                        .wParam = 2,
                                        .lParam = static_cast<std::int64_t>(laptop.window.Handle())};
  EXPECT_EQ(laptop.hotKey.Received(), std::vector{subscription});
}

TEST(StartUp, DoesWithoutTheHotKeyComponentAndTheNamedEvents) {
  sim::Laptop laptop;
  laptop.hotKey.Remove();
  laptop.events.Remove(KernelObjects::kPowerEvent);
  laptop.events.Remove(KernelObjects::kSwitchingEvent);
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(StartUp, ASecondInstanceLeavesAtOnceAndTouchesNothing) {
  sim::Laptop laptop;
  laptop.events.HoldElsewhere(L"Mutex_TessaviewService");
  laptop.Boot();

  EXPECT_EQ(laptop.ExitCode(), 0);
  EXPECT_FALSE(laptop.window.Exists());
  EXPECT_FALSE(laptop.settings.Exists());
  EXPECT_TRUE(laptop.firmware.Requests().empty());
  EXPECT_TRUE(laptop.touch.NodeSwitches().empty());
  EXPECT_TRUE(laptop.touch.RawInputRequests().empty());
  EXPECT_TRUE(laptop.processes.Starts().empty());
  EXPECT_TRUE(laptop.hotKey.Received().empty());
  EXPECT_EQ(laptop.events.OpenHandles(), 0U);
}

TEST(StartUp, EndsWhenItsWindowCannotBeCreated) {
  sim::Laptop laptop;
  laptop.faults.Fail<&os::CreateServiceWindow>();
  laptop.Boot();
  EXPECT_EQ(laptop.ExitCode(), 0);
  EXPECT_TRUE(laptop.touch.NodeSwitches().empty());
  EXPECT_FALSE(laptop.settings.Exists());
  EXPECT_FALSE(laptop.ui.Running());
}

TEST(StartUp, ShutDownTakesBackEveryRegistrationAndTheNextStartMakesThemAgain) {
  sim::Laptop laptop({.setupComplete = false});
  laptop.Boot();
  ASSERT_TRUE(laptop.sessions.SetupWaitRegistered());

  laptop.window.PostRaw(0x0010, 0, 0);  // WM_CLOSE, which ends in WM_DESTROY
  laptop.Settle();
  EXPECT_EQ(laptop.ExitCode(), 0);
  EXPECT_FALSE(laptop.window.Exists());
  EXPECT_EQ(laptop.power.Registrations(), 0U);
  EXPECT_FALSE(laptop.sessions.SetupWaitRegistered());
  EXPECT_FALSE(laptop.window.HearsOfSessions());

  laptop.sessions.setupComplete = true;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.power.Registrations(), 5U);
  EXPECT_TRUE(laptop.ui.Running());
}

// ---- Setup and the user's desktop ----

TEST(StartUp, WaitsWithTheUiForTheEndOfSetup) {
  sim::Laptop laptop({.saved = L"Off", .setupComplete = false});
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.trace.Contains(L"isOOBEComplete = 0 \n"));
  EXPECT_TRUE(laptop.processes.Starts().empty());
  EXPECT_TRUE(laptop.apps.Activations().empty());
  EXPECT_TRUE(laptop.firmware.Writes(Firmware::kPower).empty()) << "the saved power waits for the end of setup";

  laptop.sessions.FinishSetup();
  EXPECT_EQ(laptop.processes.StartsOf(L"NorvTessaviewCheck.exe"), 1U);
  EXPECT_EQ(laptop.apps.Activations().size(), 1U);
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(StartUp, TreatsSetupAsUnfinishedWhenTheSystemCannotTell) {
  sim::Laptop laptop;
  laptop.faults.Fail<&os::IsSetupComplete>();
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.trace.Contains(L"isOOBEComplete = 0 \n"));
  EXPECT_TRUE(laptop.processes.Starts().empty());
}

TEST(StartUp, WaitsForTheUsersDesktopWithoutATimeLimit) {
  for (const auto* const cover : {L"Windows.UI.Core.CoreWindow", L"BootAppClass", L""}) {
    SCOPED_TRACE(testing::PrintToString(cover));
    sim::Laptop laptop;
    const auto shell = laptop.desktop.Foreground();
    if (*cover == L'\0') {
      laptop.desktop.SetForeground(os::WindowHandle::None);
    } else {
      laptop.desktop.OpenInForeground({.className = cover});
    }
    EXPECT_FALSE(laptop.Boot()) << "ten minutes are not enough";
    EXPECT_TRUE(laptop.processes.Starts().empty());

    laptop.desktop.SetForeground(shell);
    laptop.Advance(500);
    EXPECT_EQ(laptop.processes.StartsOf(L"NorvTessaviewCheck.exe"), 1U);
    EXPECT_TRUE(laptop.Settle());
    EXPECT_TRUE(laptop.ui.Running());
  }
}

TEST(StartUp, ServesWhatCameMeanwhileOnceTheLoopRuns) {
  sim::Laptop laptop({.backlight = 100, .uiRunning = true});
  laptop.sessions.Lock();
  laptop.Boot();
  laptop.ui.Send(L"BLGET");
  laptop.hotKey.TouchPadStatus(3, 1);
  EXPECT_EQ(support::TimesTold(laptop, L"BLSET"), 0);
  EXPECT_EQ(support::TimesTold(laptop, L"GETTOUCHPAD"), 0);

  laptop.sessions.Unlock();
  EXPECT_EQ(support::TimesTold(laptop, L"BLSET"), 1);
  EXPECT_EQ(support::TimesTold(laptop, L"GETTOUCHPAD"), 1);
}

// ---- The saved power ----

TEST(StartUp, AppliesThePowerTheUserChoseAndPublishesIt) {
  struct Case {
    const wchar_t* saved;
    bool wasSignalled, panelOn, signalled;
  };
  for (const auto& c : {Case{L"On", false, true, true}, {L"Off", true, false, false}}) {
    SCOPED_TRACE(testing::PrintToString(c.saved));
    sim::Laptop laptop({.saved = c.saved, .uiRunning = true});
    laptop.events.Signal(KernelObjects::kPowerEvent, c.wasSignalled);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.PanelOn(), c.panelOn);
    EXPECT_EQ(LastTold(laptop), c.panelOn ? L"POWERON" : L"POWEROFF");
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), c.saved);
    EXPECT_EQ(laptop.events.Signalled(KernelObjects::kPowerEvent), c.signalled);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  }
}

TEST(StartUp, WithoutAChoiceLeavesPanelAndPowerEventAsTheyAre) {
  for (const bool wasSignalled : {false, true}) {
    sim::Laptop laptop({.saved = L"on", .uiRunning = true});
    laptop.settings.SetReadOnly();  // so that the value stays what it is
    laptop.events.Signal(KernelObjects::kPowerEvent, wasSignalled);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.Boot();
    EXPECT_TRUE(laptop.firmware.PanelOn());
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kPower).empty());
    EXPECT_EQ(laptop.events.Signalled(KernelObjects::kPowerEvent), wasSignalled);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  }
}

TEST(StartUp, InAShopBringsTheDarkPanelBackByATimer) {
  struct Case {
    const char* story;
    const wchar_t* saved;
    std::uint32_t serviceState;
    const wchar_t* factoryFlag;
    bool timer;
  };
  for (const auto& c : {Case{"the demo service runs", L"Off", 4, L"0", true},
                        {"the factory made it a shop machine", L"Off", 1, L"1", true},
                        {"both", L"Off", 4, L"1", true},
                        {"the service is only starting", L"Off", 2, L"0", false},
                        {"an odd flag", L"Off", 1, L"true", false},
                        {"the panel is on", L"On", 4, L"1", false}}) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop({.saved = c.saved});
    laptop.services.Set(L"RetailDemo", c.serviceState);
    laptop.registry.SetText(L"SOFTWARE\\NORV\\FactoryConfig", L"RetailDemo", c.factoryFlag);
    laptop.Boot();
    EXPECT_EQ(laptop.window.TimerPeriod(kRetailDemoTimer), c.timer ? std::optional(300'000U) : std::nullopt);
  }
}

// ---- The first power notifications ----

TEST(StartUp, TakesTheFirstPowerNotificationsForThePresentState) {
  struct Case {
    bool onMains, saver;
    std::uint32_t backlight;
    const wchar_t* line;
  };
  for (const auto& c : {Case{true, false, 200, L"The computer is powered by an AC power source. \n"},
                        {false, false, 90, L"The computer is powered by an onboard battery power source. \n"},
                        {false, true, 58, L"The computer is powered by an onboard battery power source. \n"}}) {
    SCOPED_TRACE(c.backlight);
    sim::Laptop laptop({.backlight = 200, .backlightDC = 90, .uiRunning = true});
    if (!c.onMains) laptop.power.Unplug();
    laptop.power.BatterySaver(c.saver);
    laptop.Boot();
    EXPECT_EQ(laptop.firmware.Backlight(), c.backlight);
    EXPECT_EQ(laptop.trace.Count(c.line), 1U);
    EXPECT_EQ(laptop.trace.Count(c.saver ? L"Battery saver is on. \n" : L"Battery saver is off. \n"), 1U);
    EXPECT_EQ(support::TimesTold(laptop, L"SETWALLPAPER"), 0);
    EXPECT_EQ(support::TimesTold(laptop, L"OPENMASK"), 0);
  }
}

}  // namespace

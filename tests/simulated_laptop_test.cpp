#include <gtest/gtest.h>

#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "os/clock.h"
#include "os/desktop.h"
#include "os/device_io.h"
#include "os/messages.h"
#include "os/power.h"
#include "os/processes.h"
#include "os/services.h"
#include "os/threads.h"
#include "sim/laptop.h"

// The laptop itself, seen through the door by threads that stand in for the controller's.

namespace {

using sim::Laptop;
using Words = std::vector<std::string>;

Words gHeard;  // what the stand-in for the controller saw, in order

/// Starts a thread that sleeps and notes its name `rounds` times.
void StartNoter(const std::string& name, std::uint32_t sleepMs, int rounds) {
  os::StartThread(L"noter", [=] {
    for (int i = 0; i < rounds; ++i) {
      os::Sleep(sleepMs);
      gHeard.push_back(name);
    }
  });
}

class SimulatedLaptop : public testing::Test {
 protected:
  void SetUp() override { gHeard.clear(); }
};

using SimulatedTime = SimulatedLaptop;
using SimulatedFaults = SimulatedLaptop;
using SimulatedEnd = SimulatedLaptop;
using SimulatedUi = SimulatedLaptop;
using SimulatedPrograms = SimulatedLaptop;

// ---- Time and threads ----

TEST_F(SimulatedTime, MovesToTheNextDeadlineOnlyWhenAllWait) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  StartNoter("slow", 300'000, 1);
  StartNoter("quick", 100'000, 2);
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(gHeard, (Words{"quick", "quick", "slow"}));
  EXPECT_EQ(laptop.NowMs(), start + 300'000);
}

TEST_F(SimulatedTime, AdvancesExactlyAndRunsWhatIsDueByThen) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  StartNoter("tick", 100, 10);
  laptop.Advance(250);
  EXPECT_EQ(gHeard.size(), 2U);
  EXPECT_EQ(laptop.NowMs(), start + 250);
  laptop.Advance(50);
  EXPECT_EQ(gHeard.size(), 3U);
}

TEST_F(SimulatedTime, SettlingGivesUpAtItsLimit) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  StartNoter("poll", 100, 1'000'000);
  EXPECT_FALSE(laptop.Settle(1000));
  EXPECT_EQ(laptop.NowMs(), start + 1000);
}

TEST_F(SimulatedTime, PassesForALoopThatPollsWithoutSleeping) {
  Laptop laptop;
  os::StartThread(L"spinner", [until = laptop.NowMs() + 3] {
    while (os::NowMs() < until) {
    }
    gHeard.push_back("done");
  });
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(gHeard, Words{"done"});
}

Words OrderOfRun(std::uint32_t seed) {
  gHeard.clear();
  Laptop laptop({.seed = seed, .interleaving = true});
  for (const auto* name : {"a", "b", "c", "d"}) StartNoter(name, 10, 5);
  laptop.Settle();
  return gHeard;
}

TEST_F(SimulatedTime, OneSeedIsOneRun) {
  const auto first = OrderOfRun(7);
  EXPECT_EQ(first.size(), 20U);
  EXPECT_EQ(OrderOfRun(7), first);
  EXPECT_NE(OrderOfRun(8), first);
}

TEST_F(SimulatedTime, ALockIsHeldAcrossDoorCallsAndTakenTwiceByItsOwner) {
  static os::Lock lock;  // older than the laptop, as the controller's are
  Laptop laptop;
  for (const auto* name : {"in a", "in b"}) {
    os::StartThread(L"locker", [name] {
      const std::lock_guard outer(lock);
      const std::lock_guard inner(lock);
      gHeard.push_back(name);
      os::Sleep(50);
      gHeard.push_back("out");
    });
  }
  EXPECT_TRUE(laptop.Settle());
  ASSERT_EQ(gHeard.size(), 4U);
  EXPECT_EQ(gHeard[1], "out");
  EXPECT_EQ(gHeard[3], "out");
}

// ---- Faults ----

TEST_F(SimulatedFaults, FailAfterSomeCallsAndForSomeCalls) {
  Laptop laptop;
  laptop.faults.Fail<&os::QueryPowerStatus>({.error = 5, .times = 2, .after = 1});
  std::vector<std::uint32_t> errors;
  for (int i = 0; i < 4; ++i) errors.push_back(os::QueryPowerStatus().error());
  EXPECT_EQ(errors, (std::vector<std::uint32_t>{0, 5, 5, 0}));
  EXPECT_EQ(laptop.faults.Calls<&os::QueryPowerStatus>(), 4U);
  EXPECT_EQ(laptop.faults.Calls<&os::ServiceState>(), 0U);
}

TEST_F(SimulatedFaults, SlowCallsTakeVirtualTimeAndShortAnswersAreCut) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  laptop.faults.Slow<&os::Sessions>(500);
  laptop.faults.Short<&os::Sessions>(2);
  EXPECT_EQ((*os::Sessions()).size(), 2U);
  EXPECT_EQ(laptop.NowMs(), start + 500);

  laptop.faults.ClearAll();
  EXPECT_EQ((*os::Sessions()).size(), 3U);
  EXPECT_EQ(laptop.NowMs(), start + 500);
}

// ---- The end of the process ----

TEST_F(SimulatedEnd, UnwindsThreadsWhereverTheyAreStuck) {
  static os::Lock lock;
  struct Farewell {
    ~Farewell() { gHeard.push_back("unwound"); }
  };
  {
    Laptop laptop({.uiRunning = true});
    laptop.ui.Hang();
    os::StartThread(L"holder", [] {
      const Farewell farewell;
      const std::lock_guard hold(lock);
      os::SendCopyData(os::FindTopWindow(L"Tessaview"), 102, {});  // never answered
    });
    laptop.Settle();
    os::StartThread(L"waiter", [] {
      const Farewell farewell;
      const std::lock_guard hold(lock);
      gHeard.push_back("never");
    });
    os::StartThread(L"poller", [] {
      const Farewell farewell;
      for (;;) os::Sleep(500);
    });
    laptop.Settle(5000);
    EXPECT_TRUE(gHeard.empty());
  }
  EXPECT_EQ(gHeard, (Words{"unwound", "unwound", "unwound"}));

  Laptop next;  // the lock is free again
  os::StartThread(L"taker", [] {
    const std::lock_guard hold(lock);
    gHeard.push_back("taken");
  });
  EXPECT_TRUE(next.Settle());
  EXPECT_EQ(gHeard.back(), "taken");
}

TEST_F(SimulatedEnd, ATestThatWaitsForNothingIsToldSo) {
  Laptop laptop({.uiRunning = true});
  laptop.ui.Hang();
  EXPECT_THROW(os::SendCopyData(laptop.ui.MainWindow(), 102, {}), std::runtime_error);
}

// ---- The service window ----

void Note(const std::string& what, std::uint64_t a = 0, std::int64_t b = 0) {
  gHeard.push_back(what + " " + std::to_string(a) + " " + std::to_string(b));
}

const os::ServiceWindowEvents& NotingEvents() {
  static const os::ServiceWindowEvents events{
      .hotKeyMessage = os::RegisterMessage(sim::HotKey::kHotKeyMessage),
      .touchPadStatusMessage = os::RegisterMessage(sim::HotKey::kTouchPadMessage),
      .hotKey = [](std::uint64_t wParam, std::int64_t lParam) { Note("hot key", wParam, lParam); },
      .touchPadStatus = [](std::uint64_t wParam, std::int64_t lParam) { Note("touch pad", wParam, lParam); },
      .copyData = [](std::uint64_t kind, os::BytesView record) { Note("copy data", kind, std::ssize(record)); },
      .rawInput = [](const os::RawInput&) { Note("raw input"); },
      .command = [](std::uint16_t id) { Note("command", id); },
      .timer = [](std::uint64_t id) { Note("timer", id); },
      .powerBroadcast = [](std::uint32_t event) { Note("power", event); },
      .powerSetting = [](os::PowerSetting setting,
                         std::uint32_t value) { Note("setting", static_cast<std::uint32_t>(setting), value); },
      .sessionChange = [](std::uint32_t event) { Note("session", event); },
      .queryEndSession = [](std::uint32_t reason) { Note("end session", reason); },
      .destroy =
          [] {
            Note("destroy");
            os::QuitMessageLoop(3);
          },
  };
  return events;
}

/// Runs a window with `prepare`d registrations on a thread of its own.
void StartWindow(void (*prepare)(os::WindowHandle)) {
  os::StartThread(L"window", [prepare] {
    ASSERT_TRUE(
        os::RegisterServiceWindowClass({.name = L"W", .largeIcon = 0, .smallIcon = 0, .menu = 0}, NotingEvents()));
    const auto window = os::CreateServiceWindow(L"W", L"title");
    prepare(window);
    Note("loop ended", 0, os::RunMessageLoop(window, 0));
  });
  sim::Machine().Settle();
}

class SimulatedWindow : public SimulatedLaptop {
 protected:
  Laptop laptop;
};

TEST_F(SimulatedWindow, SettlesBeforeFarTimersAndServesThemInTime) {
  StartWindow([](os::WindowHandle window) {
    os::StartTimer(window, 9487, 3'600'000);
    os::StartTimer(window, 1, 1'000);
  });
  EXPECT_TRUE(gHeard.empty());
  laptop.Advance(2'500);
  EXPECT_EQ(gHeard, (Words{"timer 1 0", "timer 1 0"}));
  laptop.window.StopTimer(1);
  laptop.Advance(3'600'000);
  EXPECT_EQ(gHeard.back(), "timer 9487 0");
  EXPECT_EQ(gHeard.size(), 3U);
}

TEST_F(SimulatedWindow, HearsOnlyWhatItLetThroughAndAskedFor) {
  StartWindow([](os::WindowHandle window) { os::AllowMessage(window, NotingEvents().hotKeyMessage); });
  laptop.hotKey.PressF6();
  laptop.hotKey.TouchPadStatus(3, 1);
  laptop.ui.Send(L"VERSION=");
  laptop.sessions.Lock();
  laptop.power.CloseLid();
  EXPECT_EQ(gHeard, Words{"hot key 107 0"});
}

TEST_F(SimulatedWindow, MessagesWaitUntilTheLoopRunsAndRegistrationsTellCurrentValues) {
  laptop.power.Unplug();
  StartWindow([](os::WindowHandle window) {
    (void)os::RegisterPowerSetting(window, os::PowerSetting::AcDcPowerSource);
    (void)os::RegisterSessionEvents(window);
    os::PostToWindow(window, NotingEvents().hotKeyMessage, 0xF9, 2);
    os::Sleep(1000);
    Note("before the loop");
  });
  EXPECT_EQ(gHeard, (Words{"before the loop 0 0", "setting 3 1", "hot key 249 2"}));
  gHeard.clear();
  laptop.power.Plug();
  laptop.power.Plug();  // no change, so no new value
  laptop.sessions.Lock();
  EXPECT_EQ(gHeard, (Words{"setting 3 0", "power 10 0", "power 10 0", "session 7 0"}));
  EXPECT_EQ(os::WindowClassName(os::ForegroundWindow()), L"Windows.UI.Core.CoreWindow");
  laptop.sessions.Unlock();
  EXPECT_EQ(os::WindowClassName(os::ForegroundWindow()), L"Progman");
}

TEST_F(SimulatedWindow, ClosingItEndsTheLoop) {
  StartWindow([](os::WindowHandle) {});
  laptop.window.PostRaw(0x0010, 0, 0);  // WM_CLOSE
  laptop.Settle();
  EXPECT_EQ(gHeard, (Words{"destroy 0 0", "loop ended 0 3"}));
  EXPECT_EQ(os::FindTopWindow(L"W"), os::WindowHandle::None);
}

// ---- The UI ----

TEST_F(SimulatedUi, AHungUiBlocksASenderUntilItRecoversAndNeverATimedOne) {
  Laptop laptop({.uiRunning = true});
  laptop.ui.Hang();
  const auto record = sim::EncodeUiRecord({.text = L"POWERON"});
  os::StartThread(L"sender", [&record] {
    os::SendCopyData(os::FindTopWindow(L"Tessaview"), 102, record);
    gHeard.push_back("sent");
  });
  EXPECT_TRUE(laptop.Settle());
  EXPECT_TRUE(gHeard.empty());
  EXPECT_FALSE(os::SendCopyDataTimeout(laptop.ui.MainWindow(), 102, record, 100));

  laptop.ui.Recover();
  EXPECT_EQ(gHeard, Words{"sent"});
  EXPECT_EQ(laptop.ui.Received(), std::vector<std::wstring>{L"POWERON"});
}

TEST_F(SimulatedUi, ABusyUiAnswersLateOrTooLate) {
  for (const auto& [busyMs, taken, waitedMs] : {std::tuple{60U, true, 60U}, {100U, true, 100U}, {250U, false, 100U}}) {
    SCOPED_TRACE(busyMs);
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(busyMs);
    EXPECT_EQ(os::SendCopyDataTimeout(laptop.ui.MainWindow(), 102, {}, 100), taken);
    EXPECT_EQ(laptop.NowMs(), start + waitedMs);
  }
}

TEST_F(SimulatedUi, RecordsKeepEveryFieldAndTextBeyondTheBasicPlane) {
  const sim::UiRecord record{.text = L"\U0001F600" + std::wstring(257, L'x'),
                             .handle = 0xFEDC'BA98'FFFF'FFFF,
                             .rect = {-1, 2, 3, 4},
                             .point = {5, -6}};
  const auto bytes = sim::EncodeUiRecord(record);
  EXPECT_EQ(bytes[528], 0xFF);
  const auto decoded = sim::DecodeUiRecord(bytes);
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->text, record.text);
  EXPECT_EQ(decoded->Percent(), -1);
  EXPECT_EQ(decoded->handle, record.handle);
  EXPECT_EQ(decoded->rect, record.rect);
  EXPECT_EQ(decoded->point, record.point);
  EXPECT_FALSE(sim::DecodeUiRecord(os::BytesView(bytes).first(551)));
}

// ---- Programs and sessions ----

TEST_F(SimulatedPrograms, RunForTheirTimeAndEndWithTheirCodes) {
  Laptop laptop;
  laptop.processes[L"tool.exe"] = {.exitCode = 1, .runMs = 3000, .first = {7}};
  {
    const auto token = os::SessionUserToken(1);
    const auto environment = os::CreateEnvironment(*token);
    const auto start = [&](const wchar_t* program) {
      return os::StartAsUser(*token, program, L"", *environment, L"WinSta0\\Default");
    };
    const auto process = start(L"C:\\x\\Tool.exe");
    ASSERT_TRUE(process);
    EXPECT_EQ(os::WaitForProcess(*process, 2999).outcome, os::WaitOutcome::TimedOut);
    EXPECT_EQ(os::ProcessExitCode(*process), 259U);
    EXPECT_EQ(os::WaitForProcess(*process, 1).outcome, os::WaitOutcome::Ended);
    EXPECT_EQ(os::ProcessExitCode(*process), 7U);
    EXPECT_EQ(start(L"C:\\x\\other.exe").error(), 2U);
    EXPECT_EQ(laptop.sessions.OpenTokens(), 1U);
  }
  EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments() + laptop.processes.OpenHandles(), 0U);
  ASSERT_EQ(laptop.processes.StartsOf(L"tool.exe"), 1U);
  EXPECT_EQ(laptop.processes.Starts()[0].session, 1U);
  EXPECT_EQ(os::SessionUserToken(0).error(), 1008U);
}

TEST_F(SimulatedPrograms, ActivatingTheUiOpensItsWindowLater) {
  Laptop laptop;
  EXPECT_FALSE(os::CreateActivationManager());  // not without COM
  ASSERT_TRUE(os::JoinCom());
  const auto manager = os::CreateActivationManager();
  ASSERT_TRUE(manager);
  EXPECT_TRUE(os::ActivateApplication(*manager, sim::Apps::kUiId, L"argument"));
  laptop.Advance(499);
  EXPECT_FALSE(laptop.ui.Running());
  laptop.Advance(1);
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_FALSE(os::ActivateApplication(*manager, L"another", L""));
  ASSERT_EQ(laptop.apps.Activations().size(), 2U);
  EXPECT_EQ(laptop.apps.Activations()[0].argument, L"argument");
}

}  // namespace

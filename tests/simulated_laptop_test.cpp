#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <vector>

#include "os/clock.h"
#include "os/desktop.h"
#include "os/device_io.h"
#include "os/messages.h"
#include "os/power.h"
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

TEST_F(SimulatedTime, MovesToTheNextDeadlineWhenAllWaitAndNoFurtherThanAsked) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  StartNoter("slow", 300'000, 1);
  StartNoter("quick", 100'000, 2);
  laptop.Advance(150'000);
  EXPECT_EQ(gHeard, Words{"quick"});
  EXPECT_EQ(laptop.NowMs(), start + 150'000);
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(gHeard, (Words{"quick", "quick", "slow"}));
  EXPECT_EQ(laptop.NowMs(), start + 300'000);
  StartNoter("poll", 100, 1'000'000);
  EXPECT_FALSE(laptop.Settle(1000)) << "gives up at its limit";
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

TEST_F(SimulatedFaults, FailOrCutOrDelaySomeCalls) {
  Laptop laptop;
  laptop.faults.Fail<&os::QueryPowerStatus>({.error = 5, .times = 2, .after = 1});
  std::vector<std::uint32_t> errors;
  for (int i = 0; i < 4; ++i) errors.push_back(os::QueryPowerStatus().error());
  EXPECT_EQ(errors, (std::vector<std::uint32_t>{0, 5, 5, 0}));
  EXPECT_EQ(laptop.faults.Calls<&os::QueryPowerStatus>(), 4U);
  EXPECT_EQ(laptop.faults.Calls<&os::ServiceState>(), 0U);

  const auto start = laptop.NowMs();
  laptop.faults.Slow<&os::Sessions>(500);
  laptop.faults.Short<&os::Sessions>(2);
  EXPECT_EQ((*os::Sessions()).size(), 2U);
  laptop.faults.ClearAll();
  EXPECT_EQ((*os::Sessions()).size(), 3U);
  EXPECT_EQ(laptop.NowMs(), start + 500);
}

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
    laptop.Settle(5000);
    EXPECT_TRUE(gHeard.empty());
  }
  EXPECT_EQ(gHeard, (Words{"unwound", "unwound"}));

  Laptop next;  // the lock is free again
  os::StartThread(L"taker", [] {
    const std::lock_guard hold(lock);
    gHeard.push_back("taken");
  });
  EXPECT_TRUE(next.Settle());
  EXPECT_EQ(gHeard.back(), "taken");
}

void Note(const std::string& what, std::uint64_t a = 0, std::int64_t b = 0) {
  gHeard.push_back(what + " " + std::to_string(a) + " " + std::to_string(b));
}

/// All that nothing is noted for is left without a handler: a message that came through would end the test.
const os::ServiceWindowEvents& NotingEvents() {
  static const auto events = [] {
    os::ServiceWindowEvents made{};
    made.hotKeyMessage = os::RegisterMessage(sim::HotKey::kHotKeyMessage);
    made.touchPadStatusMessage = os::RegisterMessage(sim::HotKey::kTouchPadMessage);
    made.hotKey = [](std::uint64_t wParam, std::int64_t lParam) { Note("hot key", wParam, lParam); };
    made.powerBroadcast = [](std::uint32_t event) { Note("power", event); };
    made.powerSetting = [](os::PowerSetting setting, std::uint32_t value) {
      Note("setting", static_cast<std::uint32_t>(setting), value);
    };
    made.sessionChange = [](std::uint32_t event) { Note("session", event); };
    return made;
  }();
  return events;
}

/// Runs a window with `prepare`d registrations on a thread of its own.
void StartWindow(void (*prepare)(os::WindowHandle)) {
  os::StartThread(L"window", [prepare] {
    ASSERT_TRUE(
        os::RegisterServiceWindowClass({.name = L"W", .largeIcon = 0, .smallIcon = 0, .menu = 0}, NotingEvents()));
    const auto window = os::CreateServiceWindow(L"W", L"title");
    prepare(window);
    os::RunMessageLoop(window, 0);
  });
  sim::Machine().Settle();
}

using SimulatedWindow = SimulatedLaptop;

TEST_F(SimulatedWindow, HearsOnlyWhatItLetThroughAndAskedFor) {
  Laptop laptop;
  StartWindow([](os::WindowHandle window) { os::AllowMessage(window, NotingEvents().hotKeyMessage); });
  laptop.hotKey.PressF6();
  laptop.hotKey.TouchPadStatus(3, 1);
  laptop.ui.Send(L"VERSION=");
  laptop.sessions.Lock();
  laptop.power.CloseLid();
  EXPECT_EQ(gHeard, Words{"hot key 107 0"});
}

TEST_F(SimulatedUi, ABusyUiAnswersLateOrTooLate) {
  for (const auto& [busyMs, taken, waitedMs] : {std::tuple{100U, true, 100U}, {250U, false, 100U}}) {
    SCOPED_TRACE(busyMs);
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(busyMs);
    EXPECT_EQ(os::SendCopyDataTimeout(laptop.ui.MainWindow(), 102, {}, 100), taken);
    EXPECT_EQ(laptop.NowMs(), start + waitedMs);
  }
}

}  // namespace

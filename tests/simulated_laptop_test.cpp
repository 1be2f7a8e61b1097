#include <memory>
#include <mutex>

#include "os/clock.h"
#include "os/desktop.h"
#include "os/messages.h"
#include "os/threads.h"
#include "tests/support.h"

// The laptop's time and end, seen through the door by threads that stand in for the controller's. What its parts do the
// contract tests show.

namespace {

using sim::Laptop;
using support::Texts;
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
using SimulatedEnd = SimulatedLaptop;

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

}  // namespace

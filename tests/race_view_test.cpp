// ThreadSanitizer sees a race of two threads on a simulated laptop (sim/race_view.h). Without this, no report of it
// would prove nothing.
#include "sim/race_view.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <mutex>

#include "os/threads.h"
#include "sim/laptop.h"

namespace {

/// Ends the program after two threads have run, with the exit code that the sanitizer gives it.
[[noreturn]] void EndAfterTwo(void (*body)()) {
  {
    sim::Laptop laptop;
    for (const auto* name : {L"one", L"other"}) os::StartThread(name, body);
    laptop.Settle();
  }
  const sim::Seen seen;
  std::exit(0);
}

TEST(RaceViewDeathTest, ReportsAPlainNumberThatNoLockGuards) {
  static int number = 0;
  static os::Lock lock;
  const auto count = [] {
    const sim::Seen seen;
    ++number;
  };
  const auto countInTurn = [] {
    const sim::Seen seen;
    const std::lock_guard hold(lock);
    ++number;
  };
  EXPECT_EXIT(EndAfterTwo(count), testing::ExitedWithCode(66), "data race");
  EXPECT_EXIT(EndAfterTwo(countInTurn), testing::ExitedWithCode(0), "");
}

}  // namespace

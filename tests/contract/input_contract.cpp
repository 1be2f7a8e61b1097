#include "os/clock.h"
#include "os/threads.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using InputContract = Contract;

TEST_F(InputContract, ASemaphoreHandsOnEachCountUpToItsMost) {
  world::Run([] {
    os::Semaphore toOther(2), back(9);
    int served = 0;
    EXPECT_TRUE(os::StartThread(L"other", [&] {
      for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(toOther.Wait());
        ++served;
        back.Post();
      }
    }));
    toOther.Post();
    EXPECT_TRUE(back.Wait());
    EXPECT_EQ(served, 1) << "and waits for more";
    toOther.Post();
    toOther.Post();
    EXPECT_TRUE(back.Wait() && back.Wait());
    EXPECT_EQ(served, 3);
    for (int i = 0; i < 5; ++i) toOther.Post();  // nobody serves any more
    EXPECT_TRUE(toOther.Wait() && toOther.Wait()) << "the most it counts";
  });
}

TEST_F(InputContract, TheDateIsOfThisAge) {
  constexpr std::uint64_t kYear = 365ULL * 24 * 3600 * 10'000'000;
  EXPECT_GT(os::SystemFileTime(), 400 * kYear);
  EXPECT_LT(os::SystemFileTime(), 600 * kYear);
}

}  // namespace
}  // namespace contract

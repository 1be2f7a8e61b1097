#include <mutex>

#include "os/clock.h"
#include "os/devices.h"
#include "os/displays.h"
#include "os/input.h"
#include "os/threads.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using InputContract = Contract;
using DevicesContract = Contract;

/// What the watching thread saw; guarded, because it is no thread of the test's.
std::mutex gMutex;
std::vector<std::uint32_t> gKeys;
bool gWindowsKeyWasDown;

void OnKey(std::uint32_t key) {
  const std::lock_guard hold(gMutex);
  gKeys.push_back(key);
  if (key == os::kKeyP) gWindowsKeyWasDown = os::IsKeyDown(os::kKeyLeftWindows);
}

std::vector<std::uint32_t> Keys() {
  const std::lock_guard hold(gMutex);
  return gKeys;
}

TEST_F(InputContract, AWatcherSeesEachPressAndReleaseAndWhatElseIsDown) {
  gKeys.clear();
  ASSERT_TRUE(os::StartThread(L"watch", [] { os::WatchKeyboard(OnKey); }));
  world::Run([] { os::Sleep(200); });  // the thread comes to watch
  const std::pair<void (*)(std::uint32_t), std::uint32_t> strokes[]{{world::Press, os::kKeyLeftWindows},
                                                                    {world::Press, os::kKeyP},
                                                                    {world::Release, os::kKeyP},
                                                                    {world::Release, os::kKeyLeftWindows}};
  for (const auto& [stroke, key] : strokes) stroke(key);
  world::Run([] {
    for (int i = 0; i < 400 && Keys().size() < 4; ++i) os::Sleep(5);
  });
  EXPECT_EQ(Keys(), (std::vector<std::uint32_t>{0x5B, 0x50, 0x50, 0x5B}));
  EXPECT_TRUE(gWindowsKeyWasDown);
  EXPECT_FALSE(os::IsKeyDown(os::kKeyLeftWindows));
}

TEST_F(InputContract, ASemaphoreHandsOnEachCountUpToItsMost) {
  world::Run([] {
    static os::Semaphore toOther(2), back(9);
    static int served;
    served = 0;
    EXPECT_TRUE(os::StartThread(L"other", [] {
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

TEST_F(DevicesContract, EachPresentDeviceIsListedAlsoWhenItsClassCannotBeRead) {
  EXPECT_GT(os::PresentDeviceClasses().size(), os::MonitorDevices().size()) << "monitors and more";
}

TEST_F(DevicesContract, TheDateIsOfThisAge) {
  constexpr std::uint64_t kYear = 365ULL * 24 * 3600 * 10'000'000;
  EXPECT_GT(os::SystemFileTime(), 400 * kYear);
  EXPECT_LT(os::SystemFileTime(), 600 * kYear);
}

}  // namespace
}  // namespace contract

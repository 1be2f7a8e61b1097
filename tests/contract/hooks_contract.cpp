#include <algorithm>
#include <mutex>

#include "os/clock.h"
#include "os/hooks.h"
#include "os/input.h"
#include "os/threads.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using HooksContract = Contract;

/// What the watching threads saw; guarded, because they are no threads of the test's.
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

TEST_F(HooksContract, AWatcherSeesEachPressAndReleaseAndWhatElseIsDown) {
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

struct Seen {
  std::uint32_t what = 0;
  os::Point pointer = {}, before = {};
  os::WindowHandle window = {};
  std::int32_t object = 0;
  friend bool operator==(const Seen&, const Seen&) = default;
};
std::vector<Seen> gSeen;

void See(const Seen& seen) {
  const std::lock_guard hold(gMutex);
  gSeen.push_back(seen);
}

std::vector<Seen> SeenOnce(std::size_t count) {
  static std::size_t wanted;
  wanted = count;
  const auto now = [] {
    const std::lock_guard hold(gMutex);
    return gSeen;
  };
  world::Run([now] {
    for (int i = 0; i < 400 && now().size() < wanted; ++i) os::Sleep(5);
  });
  return now();
}

TEST_F(HooksContract, AWatcherSeesWhereThePointerGoesAndTheLeftButton) {
  constexpr os::Point kFrom{600, 400}, kTo{900, 1200};
  world::MovePointer(kFrom);
  gSeen.clear();
  ASSERT_TRUE(os::StartThread(L"watch", [] {
    os::WatchMouse([](os::MouseEvent event, os::Point pointer) {
      See({.what = static_cast<std::uint32_t>(event), .pointer = pointer, .before = os::CursorPosition()});
    });
  }));
  world::Run([] { os::Sleep(200); });  // the thread comes to watch
  world::MovePointer(kTo);
  world::PressButton();
  world::ReleaseButton();
  const auto what = [](os::MouseEvent event) { return static_cast<std::uint32_t>(event); };
  EXPECT_EQ(SeenOnce(3), (std::vector<Seen>{{what(os::MouseEvent::Move), kTo, kFrom},
                                            {what(os::MouseEvent::LeftDown), kTo, kTo},
                                            {what(os::MouseEvent::LeftUp), kTo, kTo}}));
  EXPECT_EQ(os::CursorPosition(), kTo);
}

TEST_F(HooksContract, AWatcherIsToldOfTheEventsItAskedFor) {
  const auto window = world::OpenWindow(L"ContractWindow", L"A window of another program");
  gSeen.clear();
  ASSERT_TRUE(os::StartThread(L"watch", [] {
    os::WatchWindowEvents(os::WindowEvent::MoveSizeStart, os::WindowEvent::MoveSizeEnd,
                          [](os::WindowEvent event, os::WindowHandle of, std::int32_t object) {
                            See({.what = static_cast<std::uint32_t>(event), .window = of, .object = object});
                          });
  }));
  world::Run([] { os::Sleep(200); });
  const std::pair<os::WindowEvent, std::int32_t> raised[]{{os::WindowEvent::Foreground, os::kObjectWindow},
                                                          {os::WindowEvent::MoveSizeStart, os::kObjectWindow},
                                                          {os::WindowEvent::LocationChange, os::kObjectWindow},
                                                          {os::WindowEvent::MoveSizeEnd, os::kObjectCaret}};
  for (const auto& [event, object] : raised) world::RaiseWindowEvent(event, object);
  EXPECT_EQ(SeenOnce(2), (std::vector<Seen>{{.what = 0x0A, .window = window, .object = 0},
                                            {.what = 0x0B, .window = window, .object = -8}}));
}

}  // namespace
}  // namespace contract

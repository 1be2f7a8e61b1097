#include <mutex>

#include "tests/contract/world.h"

namespace {

using HooksContract = contract::Contract;

struct Seen {
  std::uint32_t what = 0;
  os::Point pointer = {}, before = {};
  os::WindowHandle window = {};
  std::int32_t object = 0;
  friend bool operator==(const Seen&, const Seen&) = default;
};

/// What the watching threads saw; guarded, because they are no threads of the test's.
std::mutex gMutex;
std::vector<Seen> gSeen;

void See(const Seen& seen) {
  const std::lock_guard hold(gMutex);
  gSeen.push_back(seen);
}

std::vector<Seen> SeenOnce(std::size_t count) {
  const auto now = [] {
    const std::lock_guard hold(gMutex);
    return gSeen;
  };
  world::Run([now, count] {
    for (int i = 0; i < 400 && now().size() < count; ++i) os::Sleep(5);
  });
  return now();
}

void Watch(const std::function<void()>& body) {
  gSeen.clear();
  ASSERT_TRUE(os::StartThread(L"watch", body));
  world::Run([] { os::Sleep(200); });  // the thread comes to watch
}

TEST_F(HooksContract, AWatcherSeesEachPressAndReleaseAndWhatElseIsDown) {
  Watch([] {
    return os::WatchKeyboard([](std::uint32_t key) {
      See({.what = key, .object = key == os::kKeyP && os::IsKeyDown(os::kKeyLeftWindows)});
    });
  });
  for (const auto& [key, down] :
       {std::pair(os::kKeyLeftWindows, true), {os::kKeyP, true}, {os::kKeyP, false}, {os::kKeyLeftWindows, false}}) {
    world::Stroke(key, down);
  }
  EXPECT_EQ(
      SeenOnce(4),
      (std::vector<Seen>{{.what = 0x5B}, {.what = 0x50, .object = 1}, {.what = 0x50, .object = 1}, {.what = 0x5B}}));
  EXPECT_FALSE(os::IsKeyDown(os::kKeyLeftWindows));
}

TEST_F(HooksContract, AWatcherSeesWhereThePointerGoesAndTheLeftButton) {
  constexpr os::Point kFrom{600, 400}, kTo{900, 1200};
  EXPECT_FALSE(os::HookAgain(os::InputHook::Mouse)) << "nobody watches";
  world::MovePointer(kFrom);
  Watch([] {
    return os::WatchMouse([](os::MouseEvent event, os::Point pointer) {
      See({.what = static_cast<std::uint32_t>(event), .pointer = pointer, .before = os::CursorPosition()});
    });
  });
  world::Run([] {
    os::HookAgain(os::InputHook::Mouse);
    os::Sleep(50);
  });
  world::MovePointer(kTo);
  world::Click();
  const auto what = [](os::MouseEvent event) { return static_cast<std::uint32_t>(event); };
  EXPECT_EQ(SeenOnce(3), (std::vector<Seen>{{what(os::MouseEvent::Move), kTo, kFrom},
                                            {what(os::MouseEvent::LeftDown), kTo, kTo},
                                            {what(os::MouseEvent::LeftUp), kTo, kTo}}));
  EXPECT_EQ(os::CursorPosition(), kTo);
  EXPECT_TRUE(os::SetCursorPosition(kFrom) && os::CursorPosition() == kFrom);
}

TEST_F(HooksContract, AWatcherIsToldOfTheEventsItAskedFor) {
  const auto window = world::OpenWindow();
  Watch([] {
    return os::WatchWindowEvents({{os::WindowEvent::MoveSizeStart, os::WindowEvent::MoveSizeEnd},
                                  {os::WindowEvent::LocationChange, os::WindowEvent::LocationChange}},
                                 [](os::WindowEvent event, os::WindowHandle of, std::int32_t object) {
                                   See({.what = static_cast<std::uint32_t>(event), .window = of, .object = object});
                                 });
  });
  for (const auto event :
       {os::WindowEvent::Foreground, os::WindowEvent::MoveSizeStart, os::WindowEvent::LocationChange})
    world::RaiseWindowEvent(event, os::kObjectWindow);
  world::RaiseWindowEvent(os::WindowEvent::MoveSizeEnd, os::kObjectCaret);
  EXPECT_EQ(SeenOnce(3), (std::vector<Seen>{{.what = 0x0A, .window = window, .object = 0},
                                            {.what = 0x800B, .window = window, .object = 0},
                                            {.what = 0x0B, .window = window, .object = -8}}));
}

}  // namespace

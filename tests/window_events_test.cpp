// The service window's own events: timers, sessions, the menu and the end.

#include "tests/support.h"

namespace {

using namespace support;

TEST(WindowEvents, AskTheUiEveryHourToLookForUpdates) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.Advance(3'590'000);
  EXPECT_EQ(TimesTold(laptop, L"CHECKUPDATE"), 0);
  laptop.Advance(10'000 + 24 * 3'600'000ULL);
  EXPECT_EQ(laptop.ui.Received(), Texts(25, L"CHECKUPDATE"));
}

TEST(WindowEvents, LeaveATouchPadBehindWhenTheUserGoesOrTheControllerIsToClose) {
  constexpr std::uint32_t kShutDown = 0, kInAHurry = 0x4000'0000, kCloseApp = 0x1, kSignOut = 0x8000'0000;
  for (const auto& [reason, touchPad] :
       {std::pair(kSignOut, true), {kCloseApp, true}, {kShutDown, false}, {kInAHurry, false}}) {
    RunningLaptop laptop;
    laptop.sessions.End(reason);
    EXPECT_EQ(laptop.touch.InCursorMode(), touchPad);
    EXPECT_EQ(laptop.ExitCode(), std::nullopt) << "that was only the question";
  }
}

TEST(WindowEvents, EndTheControllerByTheExitItemOnly) {
  constexpr std::uint16_t kAbout = 104, kExit = 105, kAboutBox = 103;
  RunningLaptop laptop;
  for (const std::uint16_t other : std::initializer_list<std::uint16_t>{0, 103, 106, 0xFFFF, kAbout})
    laptop.window.PickMenuItem(other);
  EXPECT_EQ(laptop.window.Dialogs(), std::vector<std::uint16_t>{kAboutBox});
  EXPECT_EQ(laptop.ExitCode(), std::nullopt);
  laptop.window.PickMenuItem(kExit);
  EXPECT_EQ(laptop.ExitCode(), 0);
}

}  // namespace

// The service window's own events: timers, power broadcasts, sessions, the menu and the end.

#include "os/service_window.h"
#include "tests/support.h"

namespace {

using namespace support;

class WindowEvents : public testing::Test {
 protected:
  RunningLaptop laptop{{.uiRunning = true}};
};

TEST_F(WindowEvents, AskTheUiEveryHourToLookForUpdates) {
  laptop.Advance(3'590'000);
  EXPECT_EQ(TimesTold(laptop, L"CHECKUPDATE"), 0);
  laptop.Advance(10'000);
  EXPECT_EQ(TimesTold(laptop, L"CHECKUPDATE"), 1);
  laptop.Advance(24 * 3'600'000ULL);
  EXPECT_EQ(TimesTold(laptop, L"CHECKUPDATE"), 25);
  EXPECT_EQ(laptop.ui.ReceivedRecords().size(), 25U) << "and nothing else";
}

TEST(EndOfSession, LeavesATouchPadBehindWhenTheUserGoesOrTheControllerIsToClose) {
  using Case = std::tuple<std::uint32_t, bool>;
  for (const auto& [reason, touchPad] : {Case{0x8000'0000, true},  // the user signs out
                                         {0x1, true},  // files of the controller are in use and shall be replaced
                                         {0x8000'0001, true},
                                         {0, false},               // the machine shuts down
                                         {0x4000'0000, false}}) {  // in a hurry
    SCOPED_TRACE(reason);
    sim::Laptop laptop;
    laptop.Boot();
    laptop.sessions.End(reason);
    EXPECT_EQ(laptop.touch.InCursorMode(), touchPad);
    EXPECT_EQ(laptop.touch.OutputReports().size(), touchPad ? 1U : 0U);
    EXPECT_EQ(laptop.ExitCode(), std::nullopt) << "that was only the question";
  }
}

TEST_F(WindowEvents, EndTheControllerByTheExitItemOnly) {
  for (const std::uint16_t other : std::initializer_list<std::uint16_t>{0, 1, 103, 106, 0xFFFF})
    laptop.window.PickMenuItem(other);
  EXPECT_TRUE(laptop.window.Dialogs().empty());
  laptop.window.PickMenuItem(104);
  EXPECT_EQ(laptop.window.Dialogs(), std::vector<std::uint16_t>{103}) << "the about box";
  EXPECT_EQ(laptop.ExitCode(), std::nullopt);

  laptop.window.PickMenuItem(105);
  EXPECT_EQ(laptop.ExitCode(), 0);
}

}  // namespace

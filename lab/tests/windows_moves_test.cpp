// Windows that the controller moves, beyond the day: at the UI's commands.
#include <chrono>

#include "kit/app_window.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

constexpr os::Rect kCPanel{0, 1080, 1920, 1595}, kOnCPanel{200, 1150, 1000, 1500};

bool Command(const std::wstring& text, const AppWindow& window, const os::Rect& rect = {}) {
  return SendCommand(text, {.handle = window.number(), .rect = rect});
}

class WindowsMoved : public LabTest {
 protected:
  /// A controller that may move windows: the panel is on and the UI ready.
  void StartMover() {
    StartController();
    ASSERT_TRUE(SendCommand(L"ALIVE"));
    // The controller launches a UI that says so, and must not do that when the test is over.
    ASSERT_TRUE(UiIsLaunched());
  }
};

TEST_F(WindowsMoved, TheUiPutsWindowsWhereItWantsThem) {
  StartMover();
  const AppWindow notes(L"Notes");
  const AppWindow tool(AppOptions{.title = L"Tool", .className = L"Chrome_WidgetWin_1", .maximizeBox = false});
  ASSERT_TRUE(Command(L"LAUNCHMOVETOC", tool));
  EXPECT_EQ(tool.Area(), kCPanel) << "what cannot be maximised fills the panel";
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPS", notes, {1500, 800, 2300, 1400}));
  RECT taskbar{};  // which takes its height from what is placed in the B panel; Wine 8 has one of none
  GetWindowRect(FindWindowW(L"Shell_TrayWnd", nullptr), &taskbar);
  const auto height = 600 - (taskbar.bottom - taskbar.top);
  EXPECT_EQ(notes.Area(), (os::Rect{1120, 480, 1920, 480 + height})) << "pushed back into the panel";
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPS", notes, {1500, 100, 2300, 700}));
  EXPECT_EQ(notes.Area(), (os::Rect{1120, 100, 1920, 100 + height}));
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPSMAX", notes, {100, 100, 700, 700}));
  EXPECT_TRUE(notes.Fills(Panel::B));
}

TEST_F(WindowsMoved, TheNavigatorMovesAndMinimizesWhatIsOnTheCPanel) {
  StartMover();
  const AppWindow onB(L"On B"), below(AppOptions{.title = L"Below", .area = kOnCPanel}),
      browser(AppOptions{.title = L"Browser", .className = L"Chrome_WidgetWin_1", .area = kOnCPanel});
  ASSERT_TRUE(SendCommand(L"NAVWINUP"));
  EXPECT_TRUE(browser.Fills(Panel::B));
  EXPECT_EQ(below.Panel(), Panel::C);
  EXPECT_TRUE(Used(L"NAVIGATION_WINDOWMOVER_UP_lab-app"));
  ASSERT_TRUE(Command(L"SYSAPPNAVIGATORMOVEDOWN", browser));
  EXPECT_TRUE(browser.Fills(Panel::C));
  EXPECT_TRUE(Used(L"SYSTASKVIEW_DRAGMOVE_DOWN_lab-app"));
  ASSERT_TRUE(SendCommand(L"HOME"));
  EXPECT_EQ(browser.State(), ShowState::Minimized);
  EXPECT_EQ(below.State(), ShowState::Minimized);
  EXPECT_EQ(onB.State(), ShowState::Normal);
}

TEST_F(WindowsMoved, NothingOnTheCPanelTakesTheFocusFromAFullScreen) {
  StartMover();
  const AppWindow notes(AppOptions{.title = L"Notes", .area = kOnCPanel}), onB(L"On B");
  const auto keepsOut = [](const AppWindow& window) {
    return (GetWindowLongPtrW(window.handle(), GWL_EXSTYLE) & WS_EX_NOACTIVATE) != 0;
  };
  {
    const AppWindow film(AppOptions{.title = L"Film", .area = {0, 0, 1920, 1080}, .bare = true});
    EXPECT_TRUE(Eventually([&] { return keepsOut(notes); }));
    EXPECT_FALSE(keepsOut(onB) || keepsOut(film));
  }
  EXPECT_TRUE(onB.BringToFront());
  EXPECT_TRUE(Eventually([&] { return !keepsOut(notes); }));
}

// Eleven seconds: the patience that programs are given, twice.
TEST_F(WindowsMoved, ProgramsThatHangAreWaitedForOnceAndEndedWhenTheyAreToClose) {
  StartMover();
  const AppWindow notes(L"Notes"), hung(AppOptions{.title = L"Hung", .area = {1000, 150, 1700, 600}}),
      unwilling(AppOptions{.title = L"Unwilling", .ignoresClose = true});
  ASSERT_TRUE(Command(L"VIEWCLOSE", unwilling));
  EXPECT_EQ(unwilling.State(), ShowState::Hidden);
  ASSERT_TRUE(SendCommand(L"TOUCH", {.point = {1200, 300}}));
  EXPECT_TRUE(UiIsTold(L"DOWN*"));
  hung.Hang();

  const auto asked = std::chrono::steady_clock::now();
  ASSERT_TRUE(SendCommand(L"DOWN"));
  ASSERT_TRUE(SendCommand(L"BLGET"));
  EXPECT_TRUE(UiIsTold(L"BLSET 45"));
  EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::milliseconds(7000));
  EXPECT_EQ(hung.Panel(), Panel::B);
  ASSERT_TRUE(Command(L"LAUNCHMOVETOC", notes));
  EXPECT_TRUE(notes.Fills(Panel::C));
  ASSERT_TRUE(Command(L"VIEWCLOSE", hung));
  EXPECT_TRUE(hung.WaitForEnd());
  EXPECT_EQ(unwilling.State(), ShowState::Hidden) << "it answers, and has its reasons";
}

}  // namespace

// Windows that the controller moves: thrown by their title bars, and at the UI's commands.
#include <algorithm>
#include <sstream>

#include "kit/app_window.h"
#include "kit/pointer.h"
#include "kit/throw.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

constexpr os::Rect kCPanel{0, 1080, 1920, 1595}, kOnCPanel{200, 1150, 1000, 1500};

bool Command(const std::wstring& text, const AppWindow& window, const os::Rect& rect = {}) {
  return SendCommand(text, UiValues{.handle = window.number(), .rect = rect});
}

bool IsMaximized(const AppWindow& window, Panel panel) {
  return window.State() == ShowState::Maximized && window.Panel() == panel;
}

bool HasExtendedStyle(HWND window, LONG_PTR style) {
  return (GetWindowLongPtrW(window, GWL_EXSTYLE) & style) != 0;
}

class WindowsMoved : public LabTest {
 protected:
  /// A controller that may move windows: the panel is on and the UI ready.
  void StartMover() {
    StartController();
    ASSERT_TRUE(SendCommand(L"ALIVE"));
    // The controller launches a UI that says so, and must not do that when the test is over.
    ASSERT_TRUE(laptop.uiTalk.WaitFor(L"activated *"));
  }

  /// Throws a window by its title bar; true when it is maximised on that panel in time.
  [[nodiscard]] bool Thrown(const AppWindow& window, const Throw& how, Panel to) const {
    const bool isHovered = BeginThrow(laptop, window, how);
    return Pointer::Drop(window) && isHovered && Eventually([&] { return IsMaximized(window, to); });
  }

  /// The UI tells of a touch in the middle of a window; true when it is answered with this arrow for it.
  [[nodiscard]] bool IsTouchAnswered(const AppWindow& window, const std::wstring& arrow) const {
    const auto mark = laptop.uiTalk.Mark();
    const auto [left, top, right, bottom] = window.Area();
    std::wstringstream answer;
    answer << arrow << L" " << static_cast<std::int32_t>(window.number()) << L" [" << left << L", " << top << L", "
           << right << L", " << bottom << L"]";
    return SendCommand(L"TOUCH", 0, (left + right) / 2, (top + bottom) / 2) && UiIsTold(answer.str(), mark);
  }

  /// The first words of what the UI was told, once `last` has come so often.
  [[nodiscard]] std::vector<std::wstring> Told(std::size_t mark, const std::wstring& last, int times) const {
    std::vector<std::wstring> words;
    const bool isComplete = Eventually([&] {
      words.clear();
      for (const auto& line : laptop.uiTalk.Since(mark)) {
        std::wstringstream parts(line);
        std::wstring direction, word;
        if (parts >> direction >> word && direction == L"received") words.push_back(word);
      }
      return std::count(words.begin(), words.end(), last) == times;
    });
    if (!isComplete) words.push_back(L"(no more in time)");
    return words;
  }
};

TEST_F(WindowsMoved, AWindowThrownDownIsMaximizedOnTheCPanelAndThrownUpOnTheBPanel) {
  StartMover();
  const AppWindow notes(L"Notes");
  auto told = laptop.uiTalk.Mark();
  EXPECT_TRUE(Thrown(notes, kThrowDown, Panel::C));
  EXPECT_EQ(Told(told, L"WSPRESS", 2),
            (std::vector<std::wstring>{L"WSNORMAL", L"WSNORMAL", L"WSHOVER", L"WSPRESS", L"WSENTER", L"WSPRESS"}));
  EXPECT_TRUE(laptop.usage.WaitFor(L"DRAGMOVE_WINDOWMOVER_DOWN_lab-app"));

  told = laptop.uiTalk.Mark();
  EXPECT_TRUE(Thrown(notes, kThrowUp, Panel::B));
  EXPECT_EQ(Told(told, L"WSPRESS", 2), (std::vector<std::wstring>{L"WSWINUPNORMAL", L"WSWINUPNORMAL", L"WSWINUPHOVER",
                                                                  L"WSPRESS", L"WSENTER", L"WSPRESS"}));
  EXPECT_TRUE(laptop.usage.WaitFor(L"DRAGMOVE_WINDOWMOVER_UP_lab-app"));
  EXPECT_TRUE(Thrown(notes, kThrowPinned, Panel::C)) << "the slower way";
}

TEST_F(WindowsMoved, AWindowDroppedElsewhereStaysThere) {
  StartMover();
  const AppWindow notes(L"Notes");
  const auto told = laptop.uiTalk.Mark();
  constexpr os::Point kElsewhere{900, 600};
  EXPECT_TRUE(BeginThrow(laptop, notes, kThrowDown));
  Pointer::GlideTo(kElsewhere);
  EXPECT_TRUE(Eventually([&] { return notes.TitleBar() == kElsewhere; }));
  EXPECT_TRUE(Pointer::Drop(notes));
  EXPECT_EQ(Told(told, L"WSPRESS", 2),
            (std::vector<std::wstring>{L"WSNORMAL", L"WSNORMAL", L"WSHOVER", L"WSNORMAL", L"WSPRESS", L"WSPRESS"}));
  EXPECT_EQ(notes.State(), ShowState::Normal);
  EXPECT_EQ(notes.TitleBar(), kElsewhere);
}

TEST_F(WindowsMoved, AUiThatHangsHoldsUpNoThrow) {
  StartMover();
  const AppWindow notes(L"Notes");
  ASSERT_TRUE(StandInUi::Hang());
  const auto told = laptop.uiTalk.Mark();
  EXPECT_TRUE(Thrown(notes, kThrowDown, Panel::C));
  EXPECT_FALSE(laptop.uiTalk.Contains(L"received *", told));
  StandInUi::Wake();
  EXPECT_EQ(Told(told, L"WSPRESS", 2).back(), L"WSPRESS") << "it hears that no overlay is wanted any more";
}

TEST_F(WindowsMoved, ATouchedWindowGoesDownAndUpAtTheArrow) {
  StartMover();
  const AppWindow notes(L"Notes");
  EXPECT_TRUE(IsTouchAnswered(notes, L"DOWN"));
  ASSERT_TRUE(SendCommand(L"DOWN"));
  EXPECT_TRUE(IsMaximized(notes, Panel::C));
  EXPECT_TRUE(IsTouchAnswered(notes, L"UP"));
  ASSERT_TRUE(SendCommand(L"UP"));
  EXPECT_TRUE(IsMaximized(notes, Panel::B));

  const auto told = laptop.uiTalk.Mark();
  notes.Show(SW_HIDE);
  ASSERT_TRUE(SendCommand(L"TOUCH", 0, 300, 1300)) << "the UI itself, and what was used before is not seen";
  EXPECT_TRUE(UiIsTold(L"FORBID", told));
}

TEST_F(WindowsMoved, TheUiPutsWindowsWhereItWantsThem) {
  StartMover();
  const AppWindow notes(L"Notes");
  const AppWindow tool(AppOptions{.title = L"Tool", .className = L"Chrome_WidgetWin_1", .maximizeBox = false});
  ASSERT_TRUE(Command(L"LAUNCHMOVETOC", tool));
  EXPECT_EQ(tool.Area(), kCPanel) << "what cannot be maximised fills the panel";
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPS", notes, {1500, 800, 2300, 1400}));
  EXPECT_EQ(notes.Area(), (os::Rect{1120, 480, 1920, 1080})) << "pushed back into the panel";
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPS", notes, {1500, 100, 2300, 700}));
  EXPECT_EQ(notes.Area(), (os::Rect{1120, 100, 1920, 700}));
  ASSERT_TRUE(Command(L"TASKGROUPLAUNCHAPPSMAX", notes, {100, 100, 700, 700}));
  EXPECT_TRUE(IsMaximized(notes, Panel::B));
}

TEST_F(WindowsMoved, TheNavigatorMovesAndMinimizesWhatIsOnTheCPanel) {
  StartMover();
  const AppWindow onB(L"On B"), below(AppOptions{.title = L"Below", .area = kOnCPanel}),
      browser(AppOptions{.title = L"Browser", .className = L"Chrome_WidgetWin_1", .area = kOnCPanel});
  ASSERT_TRUE(SendCommand(L"NAVWINUP"));
  EXPECT_TRUE(IsMaximized(browser, Panel::B));
  EXPECT_EQ(below.Panel(), Panel::C);
  EXPECT_TRUE(laptop.usage.WaitFor(L"NAVIGATION_WINDOWMOVER_UP_lab-app"));
  ASSERT_TRUE(Command(L"SYSAPPNAVIGATORMOVEDOWN", browser));
  EXPECT_TRUE(IsMaximized(browser, Panel::C));
  EXPECT_TRUE(laptop.usage.WaitFor(L"SYSTASKVIEW_DRAGMOVE_DOWN_lab-app"));
  ASSERT_TRUE(SendCommand(L"HOME"));
  EXPECT_EQ(browser.State(), ShowState::Minimized);
  EXPECT_EQ(below.State(), ShowState::Minimized);
  EXPECT_EQ(onB.State(), ShowState::Normal);
}

TEST_F(WindowsMoved, TheNavigatorShowsWindowsAsItIsAsked) {
  StartMover();
  const AppWindow notes(L"Notes");
  const std::vector<std::pair<std::wstring, ShowState>> steps{
      {L"SHOWMIN", ShowState::Minimized},          {L"SHOWRESTORE", ShowState::Normal},
      {L"APPNAVIMAXIMIZED", ShowState::Maximized}, {L"APPNAVINORMAL", ShowState::Normal},
      {L"SHOWMIN", ShowState::Minimized},          {L"APPNAVIRESTORE", ShowState::Normal}};
  for (const auto& [command, wanted] : steps) {
    ASSERT_TRUE(Command(command, notes));
    EXPECT_EQ(notes.State(), wanted) << testing::PrintToString(command);
  }
  notes.Show(SW_HIDE);
  ASSERT_TRUE(Command(L"APPNAVISHOW", notes));
  EXPECT_EQ(notes.State(), ShowState::Normal);
  ASSERT_TRUE(Command(L"SETTOPMOST", notes));
  EXPECT_TRUE(HasExtendedStyle(notes.handle(), WS_EX_TOPMOST));
  ASSERT_TRUE(Command(L"SETNOTOPMOST", notes));
  EXPECT_FALSE(HasExtendedStyle(notes.handle(), WS_EX_TOPMOST));
}

TEST_F(WindowsMoved, NothingOnTheCPanelTakesTheFocusFromAFullScreen) {
  StartMover();
  const AppWindow notes(AppOptions{.title = L"Notes", .area = kOnCPanel}), onB(L"On B");
  const auto keepsOut = [](const AppWindow& window) { return HasExtendedStyle(window.handle(), WS_EX_NOACTIVATE); };
  {
    const AppWindow film(AppOptions{.title = L"Film", .area = {0, 0, 1920, 1080}, .bare = true});
    EXPECT_TRUE(Eventually([&] { return keepsOut(notes); }));
    EXPECT_FALSE(keepsOut(onB) || keepsOut(film));
  }
  EXPECT_TRUE(onB.BringToFront());
  EXPECT_TRUE(Eventually([&] { return !keepsOut(notes); }));
}

TEST_F(WindowsMoved, ThePointerIsBroughtToTheMiddle) {
  StartMover();
  Pointer::MoveTo({900, 1300});
  ASSERT_TRUE(SendCommand(L"SETCURSORCENTER"));
  EXPECT_TRUE(laptop.trace.WaitFor(L"Thread IS in RECT CursorPos x = 960, y = 540"));
}

// Six seconds: the patience that programs are given.
TEST_F(WindowsMoved, ProgramsThatDoNotAnswerAreWaitedForOnceAndEndedWhenTheyWillNotClose) {
  StartMover();
  const AppWindow notes(L"Notes"), hung(AppOptions{.title = L"Hung", .area = {1000, 150, 1700, 600}}),
      unwilling(AppOptions{.title = L"Unwilling", .ignoresClose = true});
  ASSERT_TRUE(Command(L"VIEWCLOSE", unwilling));
  EXPECT_EQ(unwilling.State(), ShowState::Hidden);
  EXPECT_TRUE(IsTouchAnswered(hung, L"DOWN"));
  hung.Hang();

  const auto asked = std::chrono::steady_clock::now();
  ASSERT_TRUE(SendCommand(L"DOWN"));
  ASSERT_TRUE(SendCommand(L"BLGET"));
  EXPECT_TRUE(UiIsTold(L"BLSET 45"));
  EXPECT_LT(std::chrono::steady_clock::now() - asked, std::chrono::milliseconds(7000));
  EXPECT_EQ(hung.Panel(), Panel::B);
  ASSERT_TRUE(Command(L"LAUNCHMOVETOC", notes));
  EXPECT_TRUE(IsMaximized(notes, Panel::C));
  EXPECT_TRUE(unwilling.WaitForEnd());
}

}  // namespace

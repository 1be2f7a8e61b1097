#include "windows/panel_moves.h"

#include "tests/two_panels.h"
#include "windows/patient_calls.h"
#include "windows/rect_moves.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr auto kBrowser = L"Chrome_WidgetWin_1";

class PanelMoves : public testing::Test {
 protected:
  TwoPanels laptop;

  void SetScales(std::uint32_t bDpi, std::uint32_t cDpi) {
    laptop.displays.bPanel().dpi = bDpi;
    laptop.displays.cPanel().dpi = cDpi;
    laptop.displays.Changed();
  }
};

TEST_F(PanelMoves, AWindowWithAMaximiseBoxIsPlacedWhileItIsMinimised) {
  enum class To { B, BKeptMinimized, C, CSlowly };
  using Case = std::tuple<To, const wchar_t*, std::uint64_t, Texts>;
  const std::wstring onB = L"place 3 (0,0,1000,700)", onC = L"place 3 (0,1080,1920,1595)";
  for (const auto& [to, className, ms, journal] :
       {Case{To::B, L"Notepad", 200, {L"show 6", onB}}, Case{To::BKeptMinimized, L"chrome", 200, {L"show 6", onB}},
        Case{To::B, kBrowser, 200, {L"show 1", L"show 6", L"show 9", onB, onB}},
        Case{To::BKeptMinimized, L"MyChrome", 200, {L"show 1", L"show 6", onB, onB}},
        Case{To::C, L"Notepad", 200, {L"show 6", onC}}, Case{To::CSlowly, L"Notepad", 1000, {L"show 6", onC}},
        Case{To::C, kBrowser, 200, {L"show 1", L"show 6", L"show 9", onC, onC}},
        Case{To::CSlowly, kBrowser, 1000, {L"show 1", L"show 6", L"show 9", onC, onC}}}) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(to) << " " << testing::PrintToString(className));
    const bool up = to == To::B || to == To::BKeptMinimized;
    const auto top = up ? 1090 : 100;  // in part on the panel it comes from, for the most part
    const auto window =
        laptop.desktop.Open({.className = className, .area = {200, top, 1200, top + 700}, .style = 0x00CF'0000});
    const auto start = laptop.NowMs();
    EXPECT_EQ(up ? MoveWindowtoBPanel(window, to == To::BKeptMinimized)
                 : MoveWindowtoCPanel(window, to == To::CSlowly ? Pause::Long : Pause::Short),
              kMoveDone);
    EXPECT_EQ(laptop.NowMs() - start, ms);
    EXPECT_EQ(laptop.desktop.Journal(window), journal);
    EXPECT_EQ(laptop.Area(window), up ? kBPanel : kCPanel);
    EXPECT_EQ(laptop.desktop.Find(window)->state, sim::ShowState::Maximized);
  }
}

TEST_F(PanelMoves, TheRestoredSizeFollowsTheScaleOnTheWayUpOnly) {
  SetScales(144, 192);
  const auto onC = laptop.desktop.Open({.area = {300, 1120, 1301, 1423}});
  const auto onB = laptop.desktop.Open({});
  MoveWindowtoBPanel(onC, false);
  MoveWindowtoBPanel(onB, false);
  EXPECT_EQ(laptop.desktop.Journal(onC).back(), L"place 3 (0,0,750,227)");  // 1001 x 303 by 0.75
  EXPECT_EQ(laptop.desktop.Journal(onB).back(), L"place 3 (0,0,1000,700)");
  MoveWindowtoCPanel(onB, Pause::Short);
  EXPECT_EQ(laptop.desktop.Journal(onB).back(), L"place 3 (0,1080,1920,1595)");
}

TEST_F(PanelMoves, AnyOtherWindowIsMadeAsLargeAsThePanel) {
  const auto dialog = laptop.desktop.Open({.style = kNoMaximizeStyle});
  EXPECT_EQ(MoveWindowtoCPanel(dialog, Pause::Long), kMoveDone);
  EXPECT_EQ(laptop.Area(dialog), kCPanel);
  EXPECT_EQ(MoveWindowtoBPanel(dialog, false), kMoveDone);
  EXPECT_EQ(laptop.Area(dialog), kBPanel);
  EXPECT_EQ(laptop.desktop.Journal(dialog), (Texts{L"move 0 1080 1920 515", L"move 0 0 1920 1080"}));
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"[MoveWindowtoCPanel] Window no maximizebox", L"[MoveWindowtoBPanel] Window no maximizebox"}));
}

TEST_F(PanelMoves, WhatRefusesOrIsGoneOrHangsIsLeftAfterAFewTries) {
  const auto refusing = laptop.desktop.Open({.style = kDialogStyle, .refusesMoves = true});
  const auto dead = laptop.desktop.Open({.style = kDialogStyle});
  const auto hung = laptop.desktop.Open({.program = L"C:\\hung.exe", .responsive = false});
  laptop.desktop.Close(dead);
  const auto start = laptop.NowMs();
  for (const auto window : {refusing, dead, hung}) {
    EXPECT_EQ(MoveWindowtoCPanel(window, Pause::Short), kMoveFailed);
    EXPECT_EQ(MoveWindowtoBPanel(window, false), kMoveFailed);
  }
  EXPECT_EQ(laptop.NowMs(), start);
  EXPECT_EQ(laptop.desktop.Journal(refusing).size(), 20U);
  EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
  for (const auto& [window, error] : {std::pair(refusing, L"5"), {dead, L"1400"}}) {
    wchar_t handle[20];
    std::swprintf(handle, std::size(handle), L"%x", static_cast<unsigned>(window));
    EXPECT_TRUE(laptop.trace.Contains(L"============= RetryWithMoveWindow Failed, HWND = " + std::wstring(handle) +
                                      L", PosX = 0, PosY = 1080, retryTimes = 10, GetLastError = " + error +
                                      L". ============="));
  }
}

TEST_F(PanelMoves, AHiddenWindowIsShownWithTheSecondTry) {
  const auto hidden = laptop.desktop.Open({.visible = false});
  EXPECT_TRUE(RetryWithShowWindow(hidden, os::ShowCommand::ShowNormal));
  EXPECT_EQ(laptop.desktop.Journal(hidden), (Texts{L"show 1", L"show 1"}));
  EXPECT_FALSE(RetryWithShowWindow(os::WindowHandle::None, os::ShowCommand::ShowNormal));
}

TEST_F(PanelMoves, NothingGoesToAnAbsentPanel) {
  const auto window = laptop.desktop.Open({});
  laptop.displays.cPanel().Unplug();
  laptop.displays.Changed();
  EXPECT_EQ(MoveWindowtoCPanel(window, Pause::Short), kMoveDone);
  laptop.displays.cPanel().Plug();
  laptop.displays.bPanel().Detach();
  laptop.displays.Changed();
  EXPECT_EQ(MoveWindowtoBPanel(window, false), kMoveDone);
  EXPECT_TRUE(laptop.desktop.Journal(window).empty());
}

TEST_F(PanelMoves, CompanionsThatAreOpenComeToTheCPanelWithADisplayChange) {
  const auto keys = laptop.desktop.Open({.title = L"NORV Digit Keys"});
  const auto page = laptop.desktop.Open({.title = L"NORV Page Aide", .style = kDialogStyle});
  const auto hidden = laptop.desktop.Open({.title = L"NORV Pen Input", .visible = false});
  const auto other = laptop.desktop.Open({.title = L"norv deck aide"});
  laptop.displays.Changed();
  EXPECT_EQ(laptop.Area(keys), kCPanel);
  EXPECT_EQ(laptop.Area(page), kCPanel);
  EXPECT_TRUE(laptop.desktop.Journal(hidden).empty() && laptop.desktop.Journal(other).empty());
}

TEST(RectMoves, LeaveRoomForATaskbarOnlyWhereBothLieInTheBPanel) {
  enum class Bar { None, Below, AtTheSide, OnCPanel };
  using Case = std::tuple<Bar, PanelRect, std::int32_t>;
  for (const auto& [bar, to, height] :
       {Case{Bar::None, {100, 100, 800, 600}, 600}, Case{Bar::Below, {100, 100, 800, 600}, 552},
        Case{Bar::Below, {0, 0, 1920, 1080}, 1032}, Case{Bar::Below, {0, 0, 1921, 1080}, 1080},
        Case{Bar::Below, {-1, 0, 800, 600}, 600}, Case{Bar::Below, {100, 500, 800, 600}, 600},
        Case{Bar::AtTheSide, {100, 100, 800, 600}, 600}, Case{Bar::OnCPanel, {100, 100, 800, 600}, 600}}) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(bar) << " to " << to.X << " " << to.Y << " " << to.Width);
    TwoPanels laptop;
    if (bar == Bar::Below) laptop.desktop.OpenTaskbar(laptop.displays.bPanel(), sim::Edge::Bottom, 48);
    if (bar == Bar::AtTheSide) laptop.desktop.OpenTaskbar(laptop.displays.bPanel(), sim::Edge::Left, 60);
    if (bar == Bar::OnCPanel) laptop.desktop.Open({.className = L"Shell_TrayWnd", .area = {0, 1547, 1920, 1595}});
    const auto window = laptop.desktop.Open({});
    EXPECT_EQ(MoveWindowByRect(window, to, false), 0U);
    EXPECT_EQ(laptop.Area(window), (os::Rect{to.X, to.Y, to.X + to.Width, to.Y + height}));
  }
}

TEST(RectMoves, RestoreMoveTwiceAndMaximise) {
  TwoPanels laptop;
  laptop.displays.cPanel().dpi = 144;
  laptop.displays.Changed();
  const auto window = laptop.desktop.Open({.style = 0x01CF'0000});
  EXPECT_EQ(MoveWindowByRect(window, {100, 1100, 600, 400}, false), 0U);
  EXPECT_EQ(laptop.Area(window), (os::Rect{100, 1100, 700, 1500})) << "where the scale is another";
  EXPECT_EQ(MoveWindowByRect(window, {10, 10, 600, 400}, true), 0U);
  EXPECT_EQ(laptop.Area(window), kBPanel);
  const std::wstring down = L"move 100 1100 600 400", up = L"move 10 10 600 400";
  EXPECT_EQ(laptop.desktop.Journal(window), (Texts{L"show 9", down, down, L"show 1", up, up, L"show 3"}));
  EXPECT_TRUE(LogsInOrder(laptop, {L"MoveWindowByRect Start", L"IsOnBPanel and maximize",
                                   L"MoveWindowByRect Result = 0x0", L"IsOnBPanel and not maximize"}));
}

TEST(RectMoves, TellWhatFailed) {
  TwoPanels laptop;
  const auto refusing = laptop.desktop.Open({.refusesMoves = true});
  const auto hung = laptop.desktop.Open({.responsive = false});
  const auto gone = laptop.desktop.Open({});
  laptop.desktop.Close(gone);
  for (const auto& [window, maximize, failed] :
       {std::tuple(refusing, false, 6U), {refusing, true, 7U}, {hung, true, 7U}, {gone, false, 7U}}) {
    laptop.trace.Clear();
    EXPECT_EQ(MoveWindowByRect(window, {0, 0, 100, 100}, maximize), failed);
    EXPECT_TRUE(laptop.trace.Contains(L"MoveWindowByRect Result = 0x" + std::to_wstring(failed)));
  }
  laptop.faults.Fail<&os::MoveWindow>({.times = 10});
  EXPECT_EQ(MoveWindowByRect(laptop.desktop.Open({}), {0, 0, 100, 100}, false), 2U) << "the second one did it";
  EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
}

TEST(TaskGroup, IsMovedBackIntoTheBPanelAtTheRightAndAtTheBottom) {
  using Case = std::tuple<os::Rect, os::Rect, const wchar_t*>;
  TwoPanels laptop;
  for (const auto& [requested, placed, log] :
       {Case{{100, 100, 900, 700}, {100, 100, 900, 700}, nullptr},
        Case{{1120, 480, 1920, 1080}, {1120, 480, 1920, 1080}, nullptr},
        Case{{-300, -50, 500, 550}, {-300, -50, 500, 550}, nullptr},
        Case{{1500, 900, 2300, 1500}, {1120, 480, 1920, 1080}, L"Both width and height"},
        Case{{100, 900, 900, 1500}, {100, 480, 900, 1080}, L"Height"},
        Case{{1500, 100, 2300, 700}, {1120, 100, 1920, 700}, L"Width"},
        Case{{0, 0, 2500, 500}, {-580, 0, 1920, 500}, L"Width"}}) {
    SCOPED_TRACE(testing::Message() << requested.left << " " << requested.top);
    laptop.trace.Clear();
    const auto window = laptop.desktop.Open({});
    laptop.ui.Send(L"TASKGROUPLAUNCHAPPS",
                   {.handle = static_cast<std::uint64_t>(window), .rect = requested, .point = {7, 7}});
    EXPECT_EQ(laptop.Area(window), placed);
    const auto line = log == nullptr
                          ? L"[TASKGROUPLAUNCHAPPS] Move exe to B panel."
                          : L"[TASKGROUPLAUNCHAPPS] " + std::wstring(log) + L" out of B panel, reset position.";
    EXPECT_TRUE(laptop.trace.Contains(line));
    EXPECT_EQ(laptop.trace.Count(L"MoveWindowByRect Start"), log == nullptr ? 1U : 2U);
  }
}

TEST(TaskGroup, IsMaximisedWhereItIsAskedFor) {
  TwoPanels laptop;
  const auto window = laptop.desktop.Open({});
  laptop.ui.Send(L"TASKGROUPLAUNCHAPPSMAX",
                 {.handle = static_cast<std::uint64_t>(window), .rect = {1500, 900, 2300, 1000}});
  EXPECT_EQ(laptop.desktop.Journal(window),
            (Texts{L"show 1", L"move 1500 900 800 100", L"move 1500 900 800 100", L"show 3"}));
  EXPECT_EQ(laptop.Area(window), kBPanel);
}

}  // namespace

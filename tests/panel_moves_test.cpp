#include "windows/panel_moves.h"

#include "display/panel_geometry.h"
#include "tests/support.h"
#include "windows/patient_calls.h"
#include "windows/rect_moves.h"

namespace {

using namespace tessaview;
using namespace support;

void PutBPanelAside(Laptop& laptop) {
  laptop.displays.AddPrimary({1920, 360});
  laptop.displays.Changed();
}

TEST(PanelMoves, AWindowWithAMaximiseBoxIsPlacedWhileItIsMinimised) {
  struct Move {
    bool up, keepsMinimized = false;
    bool isBrowser;
    Texts shows;
  };
  LaptopInUse laptop;
  for (const auto& move : {Move{.up = true, .isBrowser = false, .shows = {L"show 6"}},
                           {.up = true, .isBrowser = true, .shows = {L"show 1", L"show 6", L"show 9"}},
                           {.up = true, .keepsMinimized = true, .isBrowser = true, .shows = {L"show 1", L"show 6"}},
                           {.up = false, .isBrowser = true, .shows = {L"show 1", L"show 6", L"show 9"}}}) {
    const auto top = move.up ? 1090 : 100;  // in part on the panel it comes from, for the most part
    const auto window = laptop.desktop.Open({.className = move.isBrowser ? L"MyChrome" : L"chrome",
                                             .area = {200, top, 1200, top + 700},
                                             .style = kFramedStyle});
    const auto start = laptop.NowMs();
    EXPECT_EQ(move.up ? MoveWindowtoBPanel(window, move.keepsMinimized) : MoveWindowtoCPanel(window, Pause::Long),
              kMoveDone);
    EXPECT_EQ(laptop.NowMs() - start, move.up ? 200U : 1000U);
    auto journal = move.shows;
    journal.insert(journal.end(), move.isBrowser ? 2 : 1,
                   move.up ? L"place 3 (0,0,1000,700)" : L"place 3 (0,1080,1920,1595)");
    EXPECT_EQ(laptop.desktop.Journal(window), journal);
    EXPECT_EQ(laptop.Area(window), move.up ? kBPanel : kCPanel);
  }
}

TEST(PanelMoves, TheRestoredSizeFollowsTheScaleOnTheWayUpOnly) {
  LaptopInUse laptop;
  const auto placed = [&](const os::Rect& area) {
    const auto window = laptop.desktop.Open({.area = area});
    MoveWindowtoBPanel(window, false);
    return laptop.desktop.Journal(window).back();
  };
  laptop.displays.bPanel().dpi = 144, laptop.displays.cPanel().dpi = 192;
  laptop.displays.Changed();
  EXPECT_EQ(placed({300, 1120, 1301, 1423}), L"place 3 (0,0,750,227)");  // 1001 x 303 by 0.75
  EXPECT_EQ(placed(kAnywhere), L"place 3 (0,0,1000,700)");
  PutBPanelAside(laptop);
  EXPECT_EQ(placed({2220, 1480, 3221, 1783}), L"place 3 (1920,360,2670,587)");
  laptop.displays.cPanel().LoseDesktopArea();  // and so its scale
  tessaview::InitialDisplay();
  EXPECT_EQ(placed(kAnywhere), L"place 3 (1920,360,2920,1060)") << "from the primary display";
}

TEST(PanelMoves, AnyOtherWindowIsMadeAsLargeAsThePanel) {
  LaptopInUse laptop;
  PutBPanelAside(laptop);
  const auto dialog = laptop.desktop.Open({.style = kNoMaximizeStyle});
  EXPECT_EQ(MoveWindowtoCPanel(dialog, Pause::Long), kMoveDone);
  EXPECT_EQ(MoveWindowtoBPanel(dialog, false), kMoveDone);
  laptop.displays.RemoveAll();
  tessaview::InitialDisplay();
  EXPECT_EQ(MoveWindowtoBPanel(dialog, false), kMoveDone) << "where there is no panel, nothing is to be done";
  EXPECT_EQ(laptop.desktop.Journal(dialog), (Texts{L"move 1920 1440 1920 515", L"move 1920 360 1920 1080"}));
}

TEST(PanelMoves, WhatRefusesOrIsGoneOrHangsIsLeftAfterAFewTries) {
  LaptopInUse laptop;
  const auto refusing = laptop.desktop.Open({.style = kDialogStyle, .refusesMoves = true});
  const auto dead = laptop.desktop.Open({.style = kDialogStyle});
  const auto hung = laptop.desktop.Open({.program = L"C:\\hung.exe", .responsive = false});
  laptop.desktop.Close(dead);
  const auto start = laptop.NowMs();
  for (const auto& [window, failed] : {std::pair(refusing, 6U), {dead, 7U}, {hung, 7U}}) {
    EXPECT_EQ(MoveWindowtoCPanel(window, Pause::Short), kMoveFailed);
    EXPECT_EQ(MoveWindowtoBPanel(window, false), kMoveFailed);
    EXPECT_EQ(MoveWindowByRect(window, {100, 100, 800, 600}, false), failed);
  }
  EXPECT_EQ(laptop.NowMs(), start);
  EXPECT_EQ(laptop.desktop.Journal(refusing).size(), 41U);
  EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
  laptop.faults.Slow<&os::AwaitInputIdle>(100);
  laptop.After(350, [&] { laptop.desktop.Find(refusing)->responsive = false; });
  EXPECT_EQ(MoveWindowtoCPanel(refusing, Pause::Short), kMoveFailed);
  EXPECT_EQ(laptop.desktop.Journal(refusing).size(), 44U) << "from then on it hangs";
  laptop.faults.ClearAll();

  const auto hidden = laptop.desktop.Open({.visible = false});
  EXPECT_TRUE(RetryWithShowWindow(hidden, os::ShowCommand::ShowNormal));
  EXPECT_EQ(laptop.desktop.Journal(hidden), (Texts{L"show 1", L"show 1"})) << "shown with the second try";
  EXPECT_FALSE(RetryWithShowWindow(os::WindowHandle::None, os::ShowCommand::ShowNormal));
}

TEST(PanelMoves, CompanionsThatAreOpenComeToTheCPanelWithADisplayChange) {
  LaptopInUse laptop;
  const auto below = laptop.desktop.Open({.title = L"NORV Digit Keys"});
  const auto keys = laptop.desktop.Open({.title = L"NORV Digit Keys"}),
             deck = laptop.desktop.Open({.title = L"NORV Deck Aide"});
  const auto hidden = laptop.desktop.Open({.title = L"NORV Pen Input", .visible = false});
  const auto other = laptop.desktop.Open({.title = L"norv deck aide"});
  laptop.displays.Changed();
  EXPECT_EQ(laptop.Area(keys), kCPanel);
  EXPECT_EQ(laptop.desktop.Foreground(), deck) << "the last one: in the order of the titles, not of the windows";
  for (const auto left : {below, hidden, other}) EXPECT_TRUE(laptop.desktop.Journal(left).empty());
}

TEST(RectMoves, LeaveRoomForATaskbarOnlyWhereBothLieInTheBPanel) {
  enum class Bar { None, Below, AtTheSide, OnCPanel };
  struct Move {
    Bar bar = Bar::Below;
    PanelRect to = {100, 100, 800, 600};
    std::int32_t taken = 0;  // of the height, by the bar
  };
  for (const auto& [bar, to, taken] :
       {Move{.bar = Bar::None}, Move{.taken = 48}, Move{.to = {0, 0, 1920, 1080}, .taken = 48},
        Move{.to = {0, 0, 1921, 1080}}, Move{.to = {-1, 0, 800, 600}}, Move{.to = {100, 500, 800, 600}},
        Move{.bar = Bar::AtTheSide}, Move{.bar = Bar::OnCPanel}}) {
    LaptopInUse laptop;
    if (bar == Bar::Below) laptop.desktop.OpenTaskbar(laptop.displays.bPanel(), sim::Edge::Bottom, 48);
    if (bar == Bar::AtTheSide) laptop.desktop.OpenTaskbar(laptop.displays.bPanel(), sim::Edge::Left, 60);
    if (bar == Bar::OnCPanel) laptop.desktop.Open({.className = L"Shell_TrayWnd", .area = {0, 1547, 1920, 1595}});
    const auto window = laptop.desktop.Open({});
    EXPECT_EQ(MoveWindowByRect(window, to, false), 0U);
    EXPECT_EQ(laptop.Area(window), (os::Rect{to.X, to.Y, to.X + to.Width, to.Y + to.Height - taken}));
  }
}

TEST(TaskGroup, IsMovedBackIntoTheBPanelAtTheRightAndAtTheBottom) {
  LaptopInUse laptop;
  PutBPanelAside(laptop);
  for (const auto& [requested, placed] : {std::pair(os::Rect{3040, 840, 3840, 1440}, os::Rect{3040, 840, 3840, 1440}),
                                          {os::Rect{1620, 310, 2420, 910}, os::Rect{1620, 310, 2420, 910}},
                                          {os::Rect{3420, 1260, 4220, 1860}, os::Rect{3040, 840, 3840, 1440}},
                                          {os::Rect{1920, 360, 4420, 860}, os::Rect{1340, 360, 3840, 860}}}) {
    const auto window = laptop.desktop.Open({});
    laptop.ui.Send(L"TASKGROUPLAUNCHAPPS",
                   {.handle = static_cast<std::uint64_t>(window), .rect = requested, .point = {7, 7}});
    EXPECT_EQ(laptop.Area(window), placed);
    EXPECT_EQ(laptop.desktop.Journal(window).size(), requested == placed ? 3U : 6U);
    EXPECT_EQ(laptop.desktop.Journal(window)[0], L"show 1");
  }
}

TEST(TaskGroup, MayBeMaximisedFromWhereverItWasPlaced) {
  LaptopInUse laptop;
  const auto window = laptop.desktop.Open({.style = kFramedStyle | os::kWsMaximize});
  laptop.ui.Send(L"TASKGROUPLAUNCHAPPSMAX",
                 {.handle = static_cast<std::uint64_t>(window), .rect = {1500, 900, 2300, 1000}});
  EXPECT_EQ(laptop.desktop.Journal(window),
            (Texts{L"show 9", L"move 1500 900 800 100", L"move 1500 900 800 100", L"show 3"}));
}

}  // namespace

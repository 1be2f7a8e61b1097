#include "windows/mover/window_mover.h"

#include "tests/drags.h"

// The user throws windows from panel to panel.

namespace {

using namespace support;

class Mover : public testing::Test {
 protected:
  LaptopInUse laptop;

  os::WindowHandle Open(Window window = {}) {
    const auto opened = laptop.desktop.OpenInForeground(std::move(window));
    laptop.Settle();
    return opened;
  }
  void MoveTo(os::Point to) { Reach(laptop, to); }
  MoverTexts Told(os::WindowHandle window) { return MoverTold(laptop, window); }
  Texts Words(os::WindowHandle window) { return MoverWords(laptop, window); }
};

TEST_F(Mover, ShowsTheOverlayOnceTheWindowMovesAndThePointerIsFarEnough) {
  const auto window = Open();
  laptop.mouse.Grab(window, kPress);
  for (const os::Point near : {os::Point{740, 140}, {750, 160}, {650, 60}, {750, 110}}) MoveTo(near);
  EXPECT_EQ(Told(window), MoverTexts{});
  MoveTo({751, 115});
  EXPECT_EQ(Told(window), (MoverTexts{{L"WSNORMAL", {700, 146}}}));
  MoveTo({720, 120});
  EXPECT_EQ(Told(window), MoverTexts{}) << "it stays";
  laptop.mouse.Drop();
  EXPECT_EQ(Told(window), (MoverTexts{{L"WSPRESS", {700, 146}}, {L"WSPRESS", {700, 146}}}));
  EXPECT_TRUE(laptop.desktop.Journal(window).empty());
}

TEST_F(Mover, HoversThrowsDownAndPins) {
  const auto window = Open();
  const MoverText normal{L"WSNORMAL", {700, 146}}, down{L"WSHOVER", {675, 134}}, pin{L"WSHOVER", {675, 134}, true};
  DragOut(laptop, window, kPress, kAway);
  for (const os::Point edge : {os::Point{725, 200}, {927, 200}, {775, 166}, {775, 246}}) MoveTo(edge);
  EXPECT_EQ(Told(window), MoverTexts{normal}) << "edges are outside";
  MoveTo(kDown);
  MoveTo({kDown.x + 5, kDown.y + 5});
  EXPECT_EQ(Told(window), (MoverTexts{normal, down}));
  MoveTo(kPin);
  MoveTo(kAway);
  MoveTo({900, 500});
  EXPECT_EQ(Told(window), (MoverTexts{normal, pin, normal}));
  MoveTo(kDown);
  Told(window);
  const auto start = laptop.NowMs();
  laptop.mouse.Drop();
  EXPECT_EQ(laptop.NowMs() - start, 200U);
  EXPECT_EQ(Told(window), (MoverTexts{{L"WSPRESS", {700, 146}}, {L"WSENTER", {}}, {L"WSPRESS", {700, 146}}}));
  EXPECT_EQ(laptop.Area(window), kCPanel);
  // By "pin" the pause is longer.
  laptop.desktop.Drag(window, kAnywhere);
  DragOut(laptop, window, kPress, kPin);
  Told(window);
  const auto pinned = laptop.NowMs();
  laptop.mouse.Drop();
  EXPECT_EQ(laptop.NowMs() - pinned, 1000U);
  EXPECT_EQ(Told(window), (MoverTexts{{L"WSPRESS", {700, 146}}, {L"WSENTER", {}, true}, {L"WSPRESS", {700, 146}}}));
  EXPECT_EQ(laptop.Area(window), kCPanel);
}

TEST_F(Mover, ThrowsUpFromTheCPanel) {
  laptop.ui.Send(L"VERSION=9.9");  // there the newer UI has the same areas
  const auto window = Open({.area = kOnCPanel});
  DragOut(laptop, window, kPressOnC, kAwayOnC);
  const MoverText normal{L"WSWINUPNORMAL", {640, 1158}}, hover{L"WSWINUPHOVER", {640, 1158}};
  MoveTo(kUp);
  MoveTo(kAwayOnC);
  EXPECT_EQ(Told(window), (MoverTexts{normal, normal, hover, normal}));
  MoveTo(kUp);
  Told(window);
  laptop.mouse.Drop();
  EXPECT_EQ(Told(window), (MoverTexts{{L"WSPRESS", {700, 1166}}, {L"WSENTER", {}}, {L"WSPRESS", {700, 1166}}}));
  EXPECT_EQ(laptop.Area(window), kBPanel);
}

TEST_F(Mover, UsesTheLargeLayoutOnPanelsOfManyPixels) {
  auto& b = laptop.displays.bPanel();
  b.nativeWidth = b.width = 3840, b.nativeHeight = b.height = 2160;
  auto& c = laptop.displays.cPanel();
  c.nativeWidth = c.height = 1080, c.nativeHeight = c.width = 2160;
  laptop.displays.Changed();
  const auto window = Open();
  DragOut(laptop, window, kPress, {840, 270});
  EXPECT_EQ(Told(window).back(), (MoverText{L"WSHOVER", {650, 122}, false, true}));
  MoveTo(kPress);
  laptop.mouse.Drop();
  EXPECT_EQ(Told(window).back(), (MoverText{L"WSPRESS", {700, 146}, false, true}));

  const auto onC = Open({.area = {1100, 2200, 1900, 2800}});
  DragOut(laptop, onC, {1500, 2210}, {1700, 2500});
  EXPECT_EQ(Told(onC), (MoverTexts{{L"WSWINUPNORMAL", {1380, 2266}, false, true}}));
}

TEST_F(Mover, DownWinsWhereTheNewerUisFirstAreasOverlap) {
  laptop.ui.Send(L"VERSION=9.9");
  const auto window = Open();
  const os::Point both{775, 200};
  DragOut(laptop, window, kPress, both);
  const MoverText normal{L"WSNORMAL", {570, 106}}, down{L"WSHOVER", {570, 106}}, pin{L"WSHOVER", {570, 106}, true};
  EXPECT_EQ(Told(window), (MoverTexts{normal, normal, down}));
  MoveTo({776, 200});
  EXPECT_EQ(Told(window), (MoverTexts{normal, pin})) << "from then on they are apart";
}

TEST_F(Mover, LeavesAloneWhatIsNoThrow) {
  const auto window = Open(), dialog = Open({.style = kDialogStyle}), ui = Open({.className = L"Tessaview_Setting"}),
             dialogOnC = Open({.area = kOnCPanel, .style = kDialogStyle});
  laptop.displays.AddMonitor({.x = 1920});
  laptop.displays.Changed();
  const auto elsewhere = Open({.area = {2000, 100, 3000, 800}});
  laptop.mouse.GrabBorder(window, {1195, 795});
  laptop.mouse.Glide({900, 500});
  laptop.mouse.Drop();
  EXPECT_EQ(Words(window), Texts{L"WSPRESS"}) << "sized";
  struct Drag {
    os::WindowHandle window;
    os::Point from, to;
  };
  for (const auto& [dragged, from, to] : {Drag{dialog, kPress, kDown},
                                          {elsewhere, {2500, 110}, {2575, 200}},
                                          {dialogOnC, kPressOnC, kAwayOnC},
                                          {window, kPress, {kPress.x, 400}},
                                          {window, {kPress.x, 400}, {300, 400}}}) {
    laptop.mouse.DragTitleBar(dragged, from, to);
    EXPECT_EQ(Words(dragged), Texts{L"WSPRESS"}) << to.x << " " << to.y;
    EXPECT_TRUE(laptop.desktop.Journal(dragged).empty());
  }
  laptop.mouse.DragTitleBar(ui, kPress, kDown);
  EXPECT_EQ(Words(window), Texts{L"WSPRESS"}) << "the last one that was looked at";
}

TEST_F(Mover, NeedsTheUiAndThePanel) {
  const auto onC = Open({.area = kOnCPanel}), window = Open();
  laptop.ui.Send(L"DIED");
  laptop.mouse.DragTitleBar(window, kPress, kDown);
  EXPECT_EQ(Words(window), Texts{L"WSPRESS"});
  laptop.mouse.DragTitleBar(onC, kPressOnC, kAwayOnC);
  EXPECT_EQ(Words(onC), Texts{L"WSPRESS"});
  laptop.ui.Send(L"CLOSEQUICKGUIDE");
  laptop.ui.OpenGuide();
  laptop.mouse.DragTitleBar(window, {775, 201}, kDown);
  laptop.ui.CloseGuide();
  laptop.hotKey.UseF6(2);
  laptop.desktop.Drag(window, kAnywhere);
  laptop.mouse.DragTitleBar(window, kPress, kDown);
  EXPECT_TRUE(Words(window).empty());
  EXPECT_EQ(laptop.Area(window).top, 190);
}

TEST_F(Mover, IsOffForGoodOnceTheUiDoesWithoutIt) {
  const auto window = Open();
  DragOut(laptop, window, kPress, kDown);
  laptop.ui.Send(L"BLOCKACTIONMENU");
  EXPECT_EQ(Words(window).back(), L"WSPRESS");
  laptop.mouse.Drop();
  laptop.mouse.DragTitleBar(window, kPress, kDown);
  MoveTo({960, 1594});
  EXPECT_TRUE(laptop.ui.Received().empty() && laptop.desktop.Journal(window).empty());
}

TEST_F(Mover, ShowsThatMicrosoftsApplicationsCannotBeThrown) {
  laptop.files.SetProductNames(L"C:\\Office\\word.exe", {L"Microsoft Office"});
  const auto window = Open({.program = L"C:\\Office\\word.exe"});
  DragOut(laptop, window, kPress, kDown);
  MoveTo(kPin);
  EXPECT_EQ(Told(window), (MoverTexts{{L"MSWSNORMAL", {700, 146}}}));
  laptop.mouse.Drop();
  EXPECT_EQ(Words(window), (Texts{L"WSPRESS", L"WSPRESS"}));
  EXPECT_TRUE(laptop.desktop.Journal(window).empty());
}

TEST_F(Mover, EscTakesTheOverlayDownAndNothingIsThrown) {
  const auto window = Open();
  DragOut(laptop, window, kPress, kDown);
  laptop.mouse.CancelDrag();
  EXPECT_EQ(Words(window).back(), L"WSPRESS");
  MoveTo(kPin);
  laptop.mouse.Drop();
  EXPECT_TRUE(Words(window).empty());
  EXPECT_EQ(laptop.Area(window), kAnywhere);
  // Nor does the next drag begin with what was hovered.
  DragOut(laptop, window, kPress, kAway);
  EXPECT_EQ(Words(window), Texts{L"WSNORMAL"});
}

/// A release that is no tap, or one that counts, ends a throw; a tap alone says nothing.
TEST_F(Mover, ATapIsShortAndNearAndCountsOnlySoonAfterUpOrDown) {
  struct Release {
    const wchar_t* command = L"";
    std::uint64_t afterCommandMs = 0, heldMs = 0;
    os::Point at = kPress;
    bool counts;
  };
  const auto window = Open();
  for (const auto& release : {Release{.heldMs = 299, .at = {719, 129}, .counts = false},
                              {.heldMs = 300, .counts = true},
                              {.heldMs = 299, .at = {720, 110}, .counts = true},
                              {.heldMs = 299, .at = {700, 130}, .counts = true},
                              {.counts = false},
                              {.command = L"UP", .afterCommandMs = 400, .counts = true},
                              {.command = L"DOWN", .afterCommandMs = 499, .counts = true},
                              {.command = L"DOWN", .afterCommandMs = 500, .counts = false}}) {
    laptop.desktop.Drag(window, kAnywhere);
    laptop.Advance(10'000);
    laptop.ui.Send(release.command);
    laptop.Advance(release.afterCommandMs);
    laptop.trace.Clear();
    laptop.mouse.Grab(window, kPress);
    MoveTo(release.at);
    laptop.Advance(release.heldMs);
    laptop.mouse.Drop();
    EXPECT_EQ(laptop.trace.Contains(L"[Window Mover] Mouse Left Button Up \n"), release.counts);
  }
}

TEST_F(Mover, TheNavigatorComesAtTheLowerEdgeOnceEachTime) {
  for (const auto& [to, times] : {std::pair(os::Point{960, 1590}, 0),
                                  {os::Point{0, 1594}, 0},
                                  {os::Point{960, 1591}, 1},
                                  {os::Point{960, 1495}, 1},
                                  {os::Point{960, 1594}, 1},
                                  {os::Point{960, 1494}, 1},
                                  {os::Point{1, 1593}, 2}}) {
    MoveTo(to);
    EXPECT_EQ(TimesTold(laptop, L"NAVIGATORSHOW"), times) << to.x << " " << to.y;
  }
}

TEST_F(Mover, MovesTheWindowOnceTheUiKnowsOrAfter200Milliseconds) {
  for (const auto& [busyMs, startsAfterMs] : {std::pair(150U, 150U), {1000U, 200U}}) {
    const auto window = Open();
    DragOut(laptop, window, kPress, kDown);
    laptop.ui.Busy(busyMs);
    laptop.After(0, [&] { laptop.mouse.Drop(); });
    laptop.Advance(startsAfterMs - 1);
    EXPECT_TRUE(laptop.desktop.Journal(window).empty());
    laptop.Advance(1);
    EXPECT_EQ(laptop.desktop.Journal(window), Texts{L"show 6"});
    laptop.Settle();
  }
}

TEST_F(Mover, WhatAHungUiMissesIsBoundedAndNeverAnEnd) {
  constexpr int kDrags = 5, kSwings = 40;
  const auto window = Open();
  laptop.ui.Hang();
  for (int drag = 0; drag < kDrags; ++drag) {
    laptop.desktop.Drag(window, kAnywhere);
    DragOut(laptop, window, kPress, kAway);
    for (int swing = 0; swing < kSwings; ++swing) {
      MoveTo(kPin);
      MoveTo(kDown);
    }
    laptop.mouse.Drop();
  }
  EXPECT_EQ(laptop.mouseHook.LongestHoldUpMs(), 0U);
  EXPECT_EQ(laptop.Area(window), kCPanel);
  laptop.ui.Recover();
  const auto words = Words(window);
  EXPECT_EQ(std::count(words.begin(), words.end(), L"WSPRESS"), 2 * kDrags);
  EXPECT_EQ(std::count(words.begin(), words.end(), L"WSENTER"), kDrags);
  EXPECT_LE(words.size(), 65U);
  EXPECT_EQ(Texts(words.end() - 3, words.end()), (Texts{L"WSPRESS", L"WSENTER", L"WSPRESS"}));
}

}  // namespace

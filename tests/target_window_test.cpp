#include "windows/target_window.h"

#include <optional>

#include "tests/support.h"

// Which window the UI's arrows move: what "TOUCH" leads to; and where "SETCURSORCENTER" puts the pointer.

namespace {

using namespace tessaview;
using namespace support;

constexpr os::Rect kUpperLeft{0, 0, 400, 300}, kElsewhere{900, 500, 1000, 600};
constexpr os::Point kOnWindow{100, 100}, kOnElsewhere{950, 550}, kDesktopPoint{1900, 1000}, kUiPoint{1810, 910};

class Target : public testing::Test {
 protected:
  Target() {
    laptop.desktop.CloseAll(sim::Ui::kMainClass);
    laptop.ui.Start();
    laptop.desktop.Drag(laptop.ui.MainWindow(), {1800, 900, 1850, 950});
  }

  LaptopInUse laptop;

  os::WindowHandle Open(const os::Rect& area, Window window = {}) {
    window.area = area;
    return laptop.desktop.Open(std::move(window));
  }

  /// What the UI is told of a touch; nothing, or one text.
  std::optional<sim::UiRecord> Touch(os::Point at) {
    laptop.ui.ForgetReceived();
    laptop.ui.Send(L"TOUCH", {.point = at});
    const auto told = laptop.ui.ReceivedTexts();
    EXPECT_LE(told.size(), 1U);
    return told.empty() ? std::nullopt : std::optional(told[0]);
  }

  void ExpectTold(os::Point at, const wchar_t* text, os::WindowHandle window = os::WindowHandle::None) {
    const auto told = Touch(at);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->text, text);
    EXPECT_EQ(told->handle, static_cast<std::uint64_t>(window));
    EXPECT_EQ(told->rect, window == os::WindowHandle::None ? os::Rect{} : laptop.Area(window));
    EXPECT_EQ(PreviousForegroundWindow(), window);
  }
};

TEST_F(Target, IsTheTouchedWindowAndMovesWithItsArrow) {
  const auto onB = Open(kUpperLeft), onC = Open({0, 1100, 400, 1400});
  laptop.desktop.Open({.area = {10, 1110, 100, 1200}, .parent = onC});
  ExpectTold(kOnWindow, L"DOWN", onB);
  ExpectTold({50, 1150}, L"UP", onC);
  const auto owned = Open(kElsewhere, {.className = L"Chrome", .owner = onC});
  ExpectTold(kOnElsewhere, L"DOWN", owned);
  const auto start = laptop.NowMs();
  laptop.ui.Send(L"DOWN");
  EXPECT_EQ(laptop.NowMs(), start + 200) << "the shorter pause";
  EXPECT_EQ(laptop.Area(owned), kCPanel);
  laptop.ui.Send(L"UP");
  EXPECT_EQ(laptop.Area(owned), kBPanel);
  const auto journal = laptop.desktop.Journal(owned);
  EXPECT_EQ(std::count(journal.begin(), journal.end(), L"show 9"), 2) << "restored on the way, down and up";
  Touch({5000, 5000});
  EXPECT_EQ(PreviousForegroundWindow(), os::WindowHandle::None) << "there is nothing";
}

TEST_F(Target, IsForgottenWithATouchOnWhatIsNoApplication) {
  const auto window = Open(kUpperLeft);
  std::vector<Window> others{{.title = L"NORV Fast Keys"}};
  for (const auto& className :
       WordsOf(L"WorkerW Progman Shell_TrayWnd Shell_SecondaryTrayWnd Windows.UI.Core.CoreWindow TaskListThumbnailWnd "
               L"Shell_InputSwitchTopLevelWindow NotifyIconOverflowWindow")) {
    others.push_back({.className = className});
  }
  for (const auto& other : others) {
    ExpectTold(kOnWindow, L"DOWN", window);
    const auto opened = Open(kElsewhere, other);
    ExpectTold(kOnElsewhere, L"FORBID");
    laptop.desktop.Close(opened);
  }
  ExpectTold(kOnWindow, L"DOWN", window);
  ExpectTold(kDesktopPoint, L"FORBID");
  ExpectTold(kOnElsewhere, L"DOWN", Open(kElsewhere, {.className = L"workerw", .title = L"norv fast keys"}));
}

TEST_F(Target, StaysWhenTheUiIsTouched) {
  const auto window = Open(kUpperLeft);
  ExpectTold(kOnWindow, L"DOWN", window);
  for (const auto* className : {L"TessaviewExpand", L"HwndWrapper[NorvTessaview;x]"}) {
    const auto ui = Open(kElsewhere, {.className = className});
    ExpectTold(kOnElsewhere, L"DOWN", window);
    laptop.desktop.Close(ui);
  }
  ExpectTold(kUiPoint, L"DOWN", window);
  laptop.trace.Clear();
  for (int twice = 0; twice < 2; ++twice) ExpectTold(kOnWindow, L"DOWN", window);
  EXPECT_EQ(laptop.trace.Count(L"Foreground change \n"), 1U) << "announced again, once";
  EXPECT_EQ(laptop.trace.Count(L"Same Window And Don't Send Message \n"), 1U);

  laptop.desktop.Find(window)->visible = false;
  ExpectTold(kUiPoint, L"FORBID");
  ExpectTold(kOnWindow, L"FORBID");
}

TEST_F(Target, OnAnotherMonitorHasNoArrow) {
  laptop.displays.AddMonitor({.x = 1920});
  laptop.displays.Changed();
  const auto window = Open({2000, 100, 2400, 400});
  EXPECT_FALSE(Touch({2100, 200}));
  EXPECT_EQ(PreviousForegroundWindow(), window);
  EXPECT_FALSE(Touch(kUiPoint));
}

TEST(CursorCentering, PutsThePointerInTheMiddleAndKeepsItThereForAWhile) {
  constexpr os::Point kMiddle{960, 540}, kFarEdge{10, 1080}, kOnC{10, 1081};
  for (const auto touch : {kFarEdge, kOnC}) {
    LaptopInUse laptop;
    laptop.mouse.MoveTo(touch);
    laptop.window.Send(
        [](const auto& events) { events.copyData(102, sim::EncodeUiRecord({.text = L"SETCURSORCENTER"})); });
    laptop.Advance(299);
    EXPECT_EQ(laptop.mouse.At(), touch);
    laptop.Advance(1);
    EXPECT_EQ(laptop.mouse.At(), kMiddle);
    laptop.mouse.SetPosition(touch);  // away again: from the C panel it comes back, three times
    for (int correction = 0; correction < 3; ++correction) {
      laptop.Advance(200);
      EXPECT_EQ(laptop.mouse.At(), touch == kOnC ? kMiddle : kFarEdge);
      laptop.mouse.SetPosition(touch);
    }
    laptop.Advance(5000);
    EXPECT_EQ(laptop.mouse.At(), touch);
  }
}

}  // namespace

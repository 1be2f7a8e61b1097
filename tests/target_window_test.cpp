#include "windows/target_window.h"

#include <optional>

#include "os/input.h"
#include "tests/two_panels.h"

// Which window the UI's arrows move: what "TOUCH" leads to; and where "SETCURSORCENTER" puts the pointer.

namespace {

using namespace tessaview;
using namespace support;

constexpr os::Point kDesktopPoint{1900, 1000}, kUiPoint{1810, 910};

class Target : public testing::Test {
 protected:
  Target() {
    laptop.desktop.CloseAll(sim::Ui::kMainClass);
    laptop.ui.Start();
    laptop.desktop.Drag(laptop.ui.MainWindow(), {1800, 900, 1850, 950});
  }

  TwoPanels laptop;

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
    SCOPED_TRACE(testing::Message() << at.x << " " << at.y);
    const auto told = Touch(at);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->text, text);
    EXPECT_EQ(told->handle, static_cast<std::uint64_t>(window));
    const auto isNone = window == os::WindowHandle::None;
    EXPECT_EQ(told->rect, isNone ? os::Rect{} : laptop.Area(window));
    EXPECT_EQ(told->point, os::Point{});
    EXPECT_EQ(PreviousForegroundWindow(), window);
  }
};

TEST_F(Target, IsTheTouchedWindowAndItsArrowPointsToTheOtherPanel) {
  const auto onB = Open({0, 0, 400, 300}), onC = Open({0, 1100, 400, 1400});
  laptop.desktop.Open({.area = {10, 1110, 100, 1200}, .parent = onC});
  ExpectTold({100, 100}, L"DOWN", onB);
  ExpectTold({50, 1150}, L"UP", onC);
  laptop.trace.Clear();
  ExpectTold({50, 1150}, L"UP", onC);
  EXPECT_TRUE(LogsInOrder(laptop, {L" ******* Valide window ******* \n", L"Same Window And Don't Send Message \n",
                                   L"Send to B Panel. \n", L" ******* ******* ******* ******* \n"}));
  const auto owned = Open({500, 100, 700, 300}, {.owner = onC});
  ExpectTold({600, 200}, L"DOWN", owned);
  EXPECT_TRUE(laptop.trace.Contains(L"WindowRoot is WS_POPUP, Choose to be ControlWindow  \n"));
}

TEST_F(Target, MovesWithTheArrows) {
  const auto window = Open({0, 0, 400, 300});
  Touch({100, 100});
  laptop.ui.Send(L"DOWN");
  EXPECT_EQ(laptop.Area(window), kCPanel);
  laptop.ui.Send(L"UP");
  EXPECT_EQ(laptop.Area(window), kBPanel);
  Touch({5000, 5000});
  EXPECT_EQ(PreviousForegroundWindow(), os::WindowHandle::None) << "there is nothing";
}

TEST_F(Target, IsForgottenWithATouchOnWhatIsNoApplication) {
  const auto window = Open({0, 0, 400, 300});
  std::vector<Window> others{{.title = L"NORV Fast Keys"}, {.title = L"NORV Grid Aide"}};
  for (const auto& className :
       WordsOf(L"WorkerW Progman Shell_TrayWnd Shell_SecondaryTrayWnd Windows.UI.Core.CoreWindow TaskListThumbnailWnd "
               L"Shell_InputSwitchTopLevelWindow NotifyIconOverflowWindow")) {
    others.push_back({.className = className});
  }
  for (const auto& other : others) {
    SCOPED_TRACE(testing::PrintToString(other.className));
    ExpectTold({100, 100}, L"DOWN", window);
    const auto opened = Open({900, 500, 1000, 600}, other);
    ExpectTold({950, 550}, L"FORBID");
    laptop.desktop.Close(opened);
  }
  ExpectTold({100, 100}, L"DOWN", window);
  ExpectTold(kDesktopPoint, L"FORBID");
  EXPECT_TRUE(LogsInOrder(laptop, {L" ******* Invalide window ******* \n", L"FORBID \n"}));
  for (const auto& [className, title] : {std::pair(L"workerw", L"x"), {L"Any", L"norv fast keys"}}) {
    const auto valid = Open({900, 500, 1000, 600}, {.className = className, .title = title});
    ExpectTold({950, 550}, L"DOWN", valid);
  }
}

TEST_F(Target, StaysWhenTheUiIsTouched) {
  const auto window = Open({0, 0, 400, 300});
  ExpectTold({100, 100}, L"DOWN", window);
  for (const auto* className : {L"TessaviewExpand", L"Tessaview_PinClass", L"HwndWrapper[NorvTessaview;x]"}) {
    const auto ui = Open({900, 500, 1000, 600}, {.className = className});
    ExpectTold({950, 550}, L"DOWN", window);
    laptop.desktop.Close(ui);
  }
  ExpectTold(kUiPoint, L"DOWN", window);
  laptop.trace.Clear();
  ExpectTold({100, 100}, L"DOWN", window);
  EXPECT_TRUE(laptop.trace.Contains(L"Foreground change \n")) << "announced again";
  laptop.trace.Clear();
  ExpectTold({100, 100}, L"DOWN", window);
  EXPECT_FALSE(laptop.trace.Contains(L"Foreground change \n"));

  laptop.desktop.Find(window)->visible = false;
  ExpectTold(kUiPoint, L"FORBID");
  EXPECT_TRUE(laptop.trace.Contains(L" PreviousForegroundWindow isn't WindowVisible  \n"));
}

TEST_F(Target, ThatWasClosedIsForbidden) {
  const auto window = Open({0, 0, 400, 300});
  ExpectTold({100, 100}, L"DOWN", window);
  laptop.desktop.Close(window);
  ExpectTold(kUiPoint, L"FORBID");
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
  TwoPanels laptop;
  laptop.mouse.MoveTo({960, 1300});
  laptop.window.Send(
      [](const auto& events) { events.copyData(102, sim::EncodeUiRecord({.text = L"SETCURSORCENTER"})); });
  laptop.Advance(299);
  EXPECT_EQ(laptop.mouse.At(), (os::Point{960, 1300}));
  laptop.Advance(1);
  EXPECT_EQ(laptop.mouse.At(), (os::Point{960, 540}));
  laptop.mouse.SetPosition({10, 1300});  // a touch on the C panel takes it away again, three times
  for (int correction = 0; correction < 3; ++correction) {
    laptop.Advance(200);
    EXPECT_EQ(laptop.mouse.At(), (os::Point{960, 540}));
    laptop.mouse.SetPosition({10, 1300});
  }
  laptop.Advance(5000);
  EXPECT_EQ(laptop.mouse.At(), (os::Point{10, 1300}));
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"[SetCursorCenter] Recevice data SETCURSORCENTER.", L"Thread Set Success SetCursorPos x = 960, y = 540",
               L"Thread NOT in RECT CursorPos x = 10, y = 1300"}));
  EXPECT_EQ(laptop.trace.Count(L"Thread NOT in RECT CursorPos x = 10, y = 1300"), 3U);
}

TEST(CursorCentering, TheScreensFarEdgesCountAsInside) {
  TwoPanels laptop;
  laptop.faults.Fail<&os::SetCursorPosition>({.error = 5});
  for (const auto& [at, line] : {std::pair(os::Point{1919, 1080}, L"Thread IS in RECT CursorPos x = 1919, y = 1080"),
                                 {os::Point{0, 1081}, L"Thread NOT in RECT CursorPos x = 0, y = 1081"}}) {
    laptop.mouse.MoveTo(at);
    laptop.ui.Send(L"SETCURSORCENTER");
    EXPECT_TRUE(laptop.trace.Contains(line));
  }
  EXPECT_TRUE(laptop.trace.Contains(L"Thread Set Cursor to Center Fail!! GetLastError = 5"));
}

}  // namespace

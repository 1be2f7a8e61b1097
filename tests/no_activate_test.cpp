#include "windows/no_activate.h"

#include "tests/support.h"
#include "windows/foreground_watch.h"

// While a program fills the primary screen, windows on the C panel take no keyboard focus.

namespace {

using namespace tessaview;
using namespace support;

class NoActivate : public testing::Test {
 protected:
  LaptopInUse laptop;
  const os::WindowHandle game = laptop.desktop.Open({.title = L"Game", .area = kBPanel, .style = 0});
  const os::WindowHandle editor = laptop.desktop.Open({.title = L"Editor"});
  const os::WindowHandle onC = OpenOnC({});

  os::WindowHandle OpenOnC(Window window) {
    window.area = kOnCPanel;
    return laptop.desktop.Open(std::move(window));
  }
  void Use(os::WindowHandle window) {
    laptop.desktop.SetForeground(window);
    laptop.Settle();
  }
  [[nodiscard]] bool Activates(os::WindowHandle window) const {
    return (laptop.desktop.Find(window)->extendedStyle & os::kWsExNoActivate) == 0;
  }
};

TEST_F(NoActivate, BeginsAndEndsWithAFullScreenProgramInFront) {
  const auto minimized = OpenOnC({.style = kFramedStyle | os::kWsMinimize}),
             special = OpenOnC({.extendedStyle = os::kWsExNoActivate});
  Use(game);
  EXPECT_FALSE(Activates(onC) || Activates(minimized));
  EXPECT_TRUE(Activates(editor) && Activates(game));
  laptop.desktop.SetTopmost(onC, true);
  Use(editor);
  EXPECT_TRUE(Activates(onC) && Activates(minimized));
  EXPECT_EQ(laptop.desktop.Journal(onC), (Texts{L"exstyle 08000000", L"exstyle 00000008"}));
  EXPECT_TRUE(laptop.desktop.Journal(special).empty()) << "by its own wish";
  Use(game);
  constexpr std::uint16_t kExit = 105;
  laptop.window.PickMenuItem(kExit);
  EXPECT_TRUE(Activates(onC)) << "the end of the controller ends the mode";
}

TEST_F(NoActivate, FollowsWhatHappensWhileItWaitsForAProgram) {
  const auto busy = OpenOnC({});
  for (const bool ends : {true, false}) {
    laptop.desktop.Find(busy)->busyUntilMs = laptop.NowMs() + 1000;
    laptop.desktop.SetForeground(ends ? game : editor);
    laptop.Advance(500);
    Use(ends ? editor : game);
    for (const auto window : {busy, onC}) EXPECT_EQ(Activates(window), ends);
  }
}

TEST_F(NoActivate, FollowsAWindowThatIsSized) {
  Use(game);
  laptop.desktop.Drag(game, kAnywhere);
  laptop.Settle();
  EXPECT_TRUE(Activates(onC));
  laptop.desktop.Drag(game, kBPanel);
  laptop.Settle();
  EXPECT_FALSE(Activates(onC));
}

TEST_F(NoActivate, LeavesOutWhatMustKeepItsActivation) {
  std::vector<os::WindowHandle> excluded{laptop.OpenFrame(L"App", kOnCPanel), OpenOnC({.title = L"NORV Deck Aide"}),
                                         OpenOnC({.visible = false})};
  for (const auto& className : WordsOf(L"Tessaview_Expand xNorvTessaviewx WorkerW EdgeUiInputTopWndClass"))
    excluded.push_back(OpenOnC({.className = className, .title = L"x"}));
  Use(game);
  for (const auto window : excluded) EXPECT_TRUE(Activates(window)) << laptop.desktop.Find(window)->className.c_str();
  EXPECT_FALSE(Activates(onC));
}

TEST_F(NoActivate, IgnoresWhatChangesNothing) {
  Use(game);
  const auto late = OpenOnC({});
  laptop.mouse.MoveTo({300, 300});
  laptop.desktop.Raise(os::WindowEvent::LocationChange, game, os::kObjectCaret);
  laptop.desktop.Raise(os::WindowEvent::LocationChange, game);
  laptop.Settle();
  EXPECT_TRUE(Activates(late)) << "the same window as before";
  constexpr auto kShown = static_cast<os::WindowEvent>(0x8002);
  EXPECT_EQ(laptop.desktop.Raise(kShown, game), 0) << "nobody is woken by what nobody asked for";
  const auto view = laptop.desktop.Open({.className = L"Tessaview_ViewClass", .title = L"View"});
  for (const auto ignored :
       {view, laptop.desktop.Open({}), laptop.desktop.Open({.title = L"TessaviewTitle"}), laptop.window.Handle()}) {
    Use(ignored);
    laptop.desktop.Raise(os::WindowEvent::LocationChange, game);  // nobody hears of the controller's own window
    laptop.Settle();
    EXPECT_FALSE(Activates(onC));
  }
}

TEST_F(NoActivate, PassesOverAWindowThatHangs) {
  const auto hung = OpenOnC({.responsive = false});
  Use(game);
  EXPECT_TRUE(Activates(hung));
  laptop.desktop.Find(onC)->responsive = false;
  Use(editor);
  EXPECT_FALSE(Activates(onC));
  laptop.desktop.Find(onC)->responsive = true;
  Use(game);
  Use(editor);
  EXPECT_TRUE(Activates(onC)) << "remembered until it answers";
}

}  // namespace

#include "windows/no_activate.h"

#include "tests/two_panels.h"
#include "windows/foreground_watch.h"

// While a program fills the primary screen, windows on the C panel take no keyboard focus.

namespace {

using namespace tessaview;
using namespace support;

class NoActivate : public testing::Test {
 protected:
  TwoPanels laptop;
  const os::WindowHandle game = laptop.desktop.Open({.title = L"Game", .area = {0, 0, 1920, 1080}, .style = 0});
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
  const auto minimized = OpenOnC({.style = 0x20CF'0000}), special = OpenOnC({.extendedStyle = 0x0800'0080});
  Use(game);
  EXPECT_FALSE(Activates(onC) || Activates(minimized));
  EXPECT_TRUE(Activates(editor) && Activates(game));
  laptop.desktop.SetTopmost(onC, true);
  Use(editor);
  EXPECT_TRUE(Activates(onC) && Activates(minimized));
  EXPECT_FALSE(Activates(special)) << "by its own wish";
  EXPECT_EQ(laptop.desktop.Journal(onC), (Texts{L"exstyle 08000000", L"exstyle 00000008"}));
  EXPECT_TRUE(laptop.desktop.Journal(special).empty());
  EXPECT_TRUE(LogsInOrder(laptop, {L"[Full Screen] Is fullscreen window, NoActivate Mode. \n",
                                   L"[Full Screen] Is not fullscreen window, Activate Mode. \n"}));
}

TEST_F(NoActivate, FollowsAWindowThatIsSized) {
  Use(game);
  laptop.desktop.Drag(game, {0, 0, 1900, 1000});
  laptop.Settle();
  EXPECT_TRUE(Activates(onC));
  laptop.desktop.Drag(game, {0, 0, 1920, 1080});
  laptop.Settle();
  EXPECT_FALSE(Activates(onC));
}

TEST_F(NoActivate, LeavesOutWhatMustKeepItsActivation) {
  std::vector<os::WindowHandle> excluded = {laptop.OpenFrame(L"App", kOnCPanel)};
  for (const auto* className :
       {L"Tessaview_Expand", L"xNorvTessaviewx", L"WorkerW", L"Progman", L"Shell_SecondaryTrayWnd", kCoreClass,
        L"TaskListThumbnailWnd", L"Shell_InputSwitchTopLevelWindow", L"NotifyIconOverflowWindow",
        L"EdgeUiInputTopWndClass"}) {
    excluded.push_back(OpenOnC({.className = className, .title = L"x"}));
  }
  excluded.push_back(OpenOnC({.title = L"NORV Deck Aide"}));
  excluded.push_back(OpenOnC({.title = L"Hidden", .visible = false}));
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
  const auto view = laptop.desktop.Open({.className = L"Tessaview_ViewClass", .title = L"View"});
  const auto untitled = laptop.desktop.Open({});
  for (const auto ignored : {view, untitled, laptop.desktop.Find(L"TessaviewTitle")}) {
    Use(ignored);
    EXPECT_FALSE(Activates(onC));
  }
  EXPECT_EQ(laptop.trace.Count(L"[Full Screen] Is fullscreen window, NoActivate Mode. \n"), 1U);
}

TEST_F(NoActivate, PassesOverAWindowThatHangs) {
  const auto hung = OpenOnC({.responsive = false});
  Use(game);
  EXPECT_TRUE(Activates(hung));
  EXPECT_FALSE(Activates(onC));
  laptop.desktop.Find(onC)->responsive = false;
  Use(editor);
  EXPECT_FALSE(Activates(onC));
  laptop.desktop.Find(onC)->responsive = true;
  Use(game);
  Use(editor);
  EXPECT_TRUE(Activates(onC)) << "remembered until it answers";
}

}  // namespace

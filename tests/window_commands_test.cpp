#include "tests/two_panels.h"

// What the UI has done with windows: closing, hiding, choosing.

namespace {

using namespace support;
using sim::ShowState;

constexpr auto kProgram = L"C:\\app.exe";

class WindowCommands : public testing::Test {
 protected:
  TwoPanels laptop;

  void Send(const wchar_t* text, os::WindowHandle window, std::int32_t how = 0) {
    laptop.ui.Send(text, {.handle = static_cast<std::uint64_t>(window), .point = {how, 0}});
  }
  /// Asks to close a window, and half of the time it is given passes.
  void AskToClose(os::WindowHandle window) {
    const auto record = sim::EncodeUiRecord({.text = L"VIEWCLOSE", .handle = static_cast<std::uint64_t>(window)});
    laptop.window.Send([record](const auto& events) { events.copyData(102, record); });
    laptop.Advance(2500);
  }
  [[nodiscard]] bool Runs(const std::wstring& program) const { return laptop.processes.IdOf(program) != 0; }
};

TEST_F(WindowCommands, DoToTheWindowWhatTheySay) {
  struct Case {
    const wchar_t* command;
    Texts journal;
    const wchar_t* log = nullptr;
  };
  const std::wstring down = L"place 3 (0,1080,1920,1595)", up = L"place 3 (0,0,1000,700)";
  for (const auto& [command, journal, log] :
       {Case{L"SHOWMIN", {L"show 2"}}, Case{L"SHOWRESTORE", {L"show 9"}},
        Case{L"APPNAVINORMAL", {L"show 1"}, L"[APP NAVIGATOR] set window normal"},
        Case{L"APPNAVISHOW", {L"show 5"}, L"[APP NAVIGATOR] show window"},
        Case{L"APPNAVIMAXIMIZED", {L"show 3"}, L"[APP NAVIGATOR] set window maximized"},
        Case{L"APPNAVIRESTORE", {L"show 9"}, L"[APP NAVIGATOR] show restore"},
        Case{L"SETTOPMOST", {L"topmost 1"}, L"[APP NAVIGATOR] set window top most"},
        Case{L"SETNOTOPMOST", {L"topmost 0"}, L"[APP NAVIGATOR] set window no top most"},
        Case{L"VIEWWINUP", {L"show 6", up}}, Case{L"VIEWRECALL", {L"show 6", down}},
        Case{L"LAUNCHMOVETOC", {L"show 6", down}, L"[LAUNCHMOVETOC] Move exe to C panel."},
        Case{L"SYSAPPNAVIGATORMOVEUP", {L"show 6", up}}, Case{L"SYSAPPNAVIGATORMOVEDOWN", {L"show 6", down}}}) {
    SCOPED_TRACE(testing::PrintToString(command));
    const auto window = laptop.desktop.Open({}), hung = laptop.desktop.Open({.responsive = false});
    Send(command, window);
    EXPECT_EQ(laptop.desktop.Journal(window), journal);
    if (log != nullptr) EXPECT_TRUE(laptop.trace.Contains(log));
    Send(command, hung);
    Send(command, os::WindowHandle::None);
    EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
  }
  const auto hidden = laptop.desktop.Open({.visible = false});
  Send(L"VIEWRECALL", hidden);
  EXPECT_EQ(laptop.desktop.Journal(hidden), (Texts{L"show 5", L"show 6", down}));
}

TEST_F(WindowCommands, TheNavigatorsMovesAreRecordedByDragAndByButton) {
  const auto window = laptop.OpenFrame(L"App", kOnCPanel, true, L"C:\\a.b\\My.App.exe");
  Send(L"SYSAPPNAVIGATORMOVEUP", window, 0);
  Send(L"SYSAPPNAVIGATORMOVEUP", window, 1);
  Send(L"SYSAPPNAVIGATORMOVEDOWN", window, 0);
  Send(L"SYSAPPNAVIGATORMOVEDOWN", window, -1);
  EXPECT_EQ(laptop.trace.Usage(), (Texts{L"SYSTASKVIEW_DRAGMOVE_UP_My.App", L"SYSTASKVIEW_WINDOWMOVER_UP_My.App",
                                         L"SYSTASKVIEW_DRAGMOVE_DOWN_My.App", L"SYSTASKVIEW_WINDOWMOVER_DOWN_My.App"}));
  EXPECT_TRUE(LogsInOrder(laptop, {L"[SYSTEM_APP_NAVIGATOR] Move exe to B panel by drag.",
                                   L"[SYSTEM_APP_NAVIGATOR] Move exe to B panel by button.",
                                   L"[SYSTEM_APP_NAVIGATOR] Move exe to C panel by drag.",
                                   L"[SYSTEM_APP_NAVIGATOR] Move exe to C panel by button."}));
}

TEST_F(WindowCommands, HomeClearsTheCPanelOfApplications) {
  enum class Fate { Left, Minimized, Hidden };
  using Case = std::tuple<Fate, Window>;
  const auto on = [](Window window) {
    window.area = kOnCPanel;
    return window;
  };
  std::vector<std::pair<os::WindowHandle, Fate>> opened;
  for (const auto& [fate, window] :
       {Case{Fate::Minimized, on({})}, Case{Fate::Minimized, on({.style = os::kWsPopup})},
        Case{Fate::Hidden, on({.title = L"NORV Pen Input"})}, Case{Fate::Left, on({.style = kDialogStyle})},
        Case{Fate::Left, on({.visible = false})}, Case{Fate::Left, on({.className = L"Tessaview_AllAppClass"})},
        Case{Fate::Left, on({.className = L"WorkerW"})}, Case{Fate::Left, on({.className = L"EdgeUiInputTopWndClass"})},
        Case{Fate::Left, on({.className = L"Shell_SecondaryTrayWnd"})}, Case{Fate::Left, {}},
        Case{Fate::Left, on({.responsive = false})}}) {
    opened.emplace_back(laptop.desktop.Open(window), fate);
  }
  opened.emplace_back(laptop.OpenFrame(L"App", kOnCPanel), Fate::Minimized);
  opened.emplace_back(laptop.OpenFrame(L"", kOnCPanel), Fate::Left);
  opened.emplace_back(laptop.OpenFrame(L"Suspended", kOnCPanel, false), Fate::Left);
  laptop.ui.Send(L"HOME");
  for (std::size_t i = 0; i < opened.size(); ++i) {
    const auto& [window, fate] = opened[i];
    const Texts journal = fate == Fate::Minimized ? Texts{L"show 2"}
                          : fate == Fate::Hidden  ? Texts{L"show 0"}
                                                  : Texts{};
    EXPECT_EQ(laptop.desktop.Journal(window), journal) << i;
  }
  laptop.ui.Send(L"HOME");
  EXPECT_EQ(laptop.desktop.Journal(opened[0].first).size(), 1U) << "minimised ones stay so";
}

TEST_F(WindowCommands, NavWinUpTakesTheTopmostApplicationOfTheCPanel) {
  const auto below = laptop.desktop.Open({.className = L"Chrome_X", .area = kOnCPanel});
  const auto frame = laptop.OpenFrame(L"App", kOnCPanel);
  laptop.OpenFrame(L"Suspended", kOnCPanel, false);
  for (const Window& skipped : {Window{.title = L"NORV Page Aide"},
                                {.className = L"WorkerW"},
                                {.visible = false},
                                {.style = kDialogStyle},
                                {.style = 0x20CF'0000},
                                {.className = L"Tessaview_Setting"}}) {
    auto window = skipped;
    window.area = kOnCPanel;
    laptop.desktop.Open(window);
  }
  laptop.desktop.Open({});
  laptop.ui.Send(L"NAVWINUP");
  EXPECT_EQ(laptop.Area(frame), kBPanel);
  EXPECT_TRUE(laptop.desktop.Journal(below).empty());
  laptop.ui.Send(L"NAVWINUP");
  EXPECT_EQ(laptop.desktop.Journal(below),
            (Texts{L"show 1", L"show 6", L"place 3 (0,0,800,380)", L"place 3 (0,0,800,380)"}));
  laptop.ui.Send(L"NAVWINUP");
  EXPECT_EQ(laptop.trace.Usage(), (Texts{L"NAVIGATION_WINDOWMOVER_UP_App", L"NAVIGATION_WINDOWMOVER_UP_notepad"}));
}

TEST_F(WindowCommands, AViewThatClosesLeavesItsProgramRunning) {
  const auto window = laptop.desktop.Open({.program = kProgram, .closesAfterMs = 1000});
  AskToClose(window);
  EXPECT_EQ(laptop.desktop.Journal(window), (Texts{L"show 0", L"close"}));
  EXPECT_EQ(laptop.desktop.Find(window), nullptr);
  laptop.Advance(10'000);
  EXPECT_TRUE(Runs(kProgram));
}

TEST_F(WindowCommands, OneThatDoesNotCloseIsEndedWithItsProgramAfterFiveSeconds) {
  for (const bool hangs : {false, true}) {
    const auto window = laptop.desktop.Open({.program = kProgram, .responsive = !hangs, .closesWhenAsked = false});
    AskToClose(window);
    laptop.Advance(2400);
    EXPECT_TRUE(Runs(kProgram));
    laptop.Advance(200);
    EXPECT_FALSE(Runs(kProgram));
    EXPECT_EQ(laptop.processes.OpenHandles(), 0U) << hangs;
  }
}

TEST_F(WindowCommands, AHandleThatMeansAnotherWindowByThenEndsNobody) {
  const auto reused = laptop.desktop.Open({.program = kProgram, .closesWhenAsked = false});
  AskToClose(reused);
  laptop.desktop.Find(reused)->className = L"Another";
  const auto inherited = laptop.desktop.Open({.program = L"C:\\b.exe", .closesWhenAsked = false});
  AskToClose(inherited);
  laptop.desktop.Find(inherited)->processId = laptop.processes.Run(L"C:\\c.exe");
  laptop.Advance(10'000);
  EXPECT_TRUE(Runs(kProgram) && Runs(L"C:\\b.exe") && Runs(L"C:\\c.exe"));
}

TEST_F(WindowCommands, TheShellTheUiAndTheControllerAreNeverEnded) {
  laptop.desktop.Find(laptop.ui.MainWindow())->closesWhenAsked = false;
  const auto explorer = laptop.desktop.Open(
      {.className = L"CabinetWClass", .program = L"C:\\Windows\\explorer.exe", .closesWhenAsked = false});
  for (const auto window : {explorer, laptop.ui.MainWindow(), os::WindowHandle::None}) {
    AskToClose(window);
    laptop.Advance(10'000);
  }
  EXPECT_TRUE(Runs(L"C:\\Windows\\explorer.exe") && laptop.ui.Running());
}

TEST_F(WindowCommands, AFrameIsClosedWithTheApplicationInsideItAndNeverWithItsHost) {
  for (const bool isInside : {true, false}) {
    const auto frame = laptop.OpenFrame(L"Notes", kOnCPanel, isInside);
    laptop.desktop.Find(frame)->closesWhenAsked = false;
    laptop.desktop.Open({.className = kCoreClass, .title = L"Notes", .program = kProgram, .closesWhenAsked = false});
    AskToClose(frame);
    laptop.Advance(10'000);
    EXPECT_FALSE(Runs(L"C:\\Program Files\\WindowsApps\\App\\App.exe"));
    EXPECT_TRUE(Runs(kProgram)) << "another one's window of the same name";
    EXPECT_TRUE(Runs(L"C:\\Windows\\System32\\ApplicationFrameHost.exe"));
  }
}

TEST_F(WindowCommands, AWallpaperIsSetByTheToolInTwoSteps) {
  constexpr auto kTool = L"C:\\Program Files\\NORV\\Tessaview\\NorvTessaviewWallpaper.exe";
  laptop.files.AddFile(kTool);
  laptop.processes[L"NorvTessaviewWallpaper.exe"] = {};
  for (const auto& [text, argument] :
       {std::pair(L"WALLPAPER=C:\\My Pictures\\a=b.jpg", L" -UI \"C:\\My Pictures\\a=b.jpg\""),
        {L"WALLPAPERB=C:\\b.jpg", L" -UIB \"C:\\b.jpg\""}}) {
    const auto before = laptop.processes.Starts().size();
    laptop.ui.Send(text);
    const auto& starts = laptop.processes.Starts();
    ASSERT_EQ(starts.size(), before + 2);
    const auto tool = L"\"" + std::wstring(kTool) + L"\"";
    EXPECT_EQ(starts[before].commandLine, tool + L" -SET Tessaview");
    EXPECT_EQ(starts[before + 1].commandLine, tool + argument);
  }
}

}  // namespace

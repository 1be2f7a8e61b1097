#include "tests/support.h"

// What the UI has done with windows: closing, hiding, choosing.

namespace {

using namespace support;

constexpr auto kProgram = L"C:\\app.exe";

class WindowCommands : public testing::Test {
 protected:
  LaptopInUse laptop;

  void Send(const wchar_t* text, os::WindowHandle window, std::int32_t how = 0) {
    laptop.ui.Send(text, {.handle = static_cast<std::uint64_t>(window), .point = {how, 0}});
  }
  os::WindowHandle OpenOnC(Window window) {
    window.area = kOnCPanel;
    return laptop.desktop.Open(std::move(window));
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
  const std::wstring down = L"place 3 (0,1080,1920,1595)", up = L"place 3 (0,0,1000,700)";
  for (const auto& [command, journal] : {std::pair(L"SHOWMIN", Texts{L"show 2"}),
                                         {L"SHOWRESTORE", {L"show 9"}},
                                         {L"APPNAVINORMAL", {L"show 1"}},
                                         {L"APPNAVISHOW", {L"show 5"}},
                                         {L"APPNAVIMAXIMIZED", {L"show 3"}},
                                         {L"APPNAVIRESTORE", {L"show 9"}},
                                         {L"SETTOPMOST", {L"topmost 1"}},
                                         {L"SETNOTOPMOST", {L"topmost 0"}},
                                         {L"VIEWWINUP", {L"show 6", up}},
                                         {L"VIEWRECALL", {L"show 6", down}},
                                         {L"LAUNCHMOVETOC", {L"show 6", down}},
                                         {L"SYSAPPNAVIGATORMOVEUP", {L"show 6", up}},
                                         {L"SYSAPPNAVIGATORMOVEDOWN", {L"show 6", down}}}) {
    const auto window = laptop.desktop.Open({}), hung = laptop.desktop.Open({.responsive = false});
    for (const auto each : {window, hung, os::WindowHandle::None}) Send(command, each);
    EXPECT_EQ(laptop.desktop.Journal(window), journal);
    EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
  }
  const auto hidden = laptop.desktop.Open({.visible = false});
  Send(L"VIEWRECALL", hidden);
  EXPECT_EQ(laptop.desktop.Journal(hidden), (Texts{L"show 5", L"show 6", down}));
}

TEST_F(WindowCommands, HomeClearsTheCPanelOfApplications) {
  const Texts left, minimized{L"show 2"}, hidden{L"show 0"};
  std::vector<std::pair<os::WindowHandle, Texts>> opened{{laptop.OpenFrame(L"App", kOnCPanel), minimized},
                                                         {laptop.OpenFrame(L"", kOnCPanel), left},
                                                         {laptop.OpenFrame(L"Suspended", kOnCPanel, false), left},
                                                         {laptop.desktop.Open({}), left}};
  for (const auto& [window, fate] : {std::pair(Window{}, minimized),
                                     {{.style = os::kWsPopup}, minimized},
                                     {{.title = L"NORV Pen Input"}, hidden},
                                     {{.style = kDialogStyle}, left},
                                     {{.visible = false}, left},
                                     {{.className = L"Tessaview_AllAppClass"}, left},
                                     {{.className = L"WorkerW"}, left},
                                     {{.className = L"EdgeUiInputTopWndClass"}, left},
                                     {{.responsive = false}, left}}) {
    opened.emplace_back(OpenOnC(window), fate);
  }
  for (int twice = 0; twice < 2; ++twice) {  // minimised ones stay so
    laptop.ui.Send(L"HOME");
    for (const auto& [window, journal] : opened) {
      EXPECT_EQ(laptop.desktop.Journal(window), journal) << laptop.desktop.Find(window)->className.c_str();
    }
  }
}

TEST_F(WindowCommands, NavWinUpTakesTheTopmostApplicationOfTheCPanel) {
  const auto below = OpenOnC({.className = L"Chrome_X"});
  const auto frame = laptop.OpenFrame(L"App", kOnCPanel);
  laptop.OpenFrame(L"Suspended", kOnCPanel, false);
  for (const Window& skipped :
       {Window{.title = L"NORV Page Aide"}, {.style = kDialogStyle}, {.style = kFramedStyle | os::kWsMinimize}}) {
    OpenOnC(skipped);
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
  laptop.Advance(10'000);
  EXPECT_TRUE(Runs(kProgram) && laptop.desktop.Find(window) == nullptr);
}

TEST_F(WindowCommands, OneThatDoesNotCloseIsEndedWithItsProgramAfterFiveSeconds) {
  for (const bool hangs : {false, true}) {
    const auto window = laptop.desktop.Open({.program = kProgram, .responsive = !hangs, .closesWhenAsked = false});
    AskToClose(window);
    laptop.Advance(2400);
    EXPECT_TRUE(Runs(kProgram));
    laptop.Advance(200);
    EXPECT_FALSE(Runs(kProgram));
  }
}

TEST_F(WindowCommands, NobodyIsEndedForAWindowThatIsAnotherByThenNorTheShellNorTheUi) {
  const auto reused = laptop.desktop.Open({.program = kProgram, .closesWhenAsked = false});
  AskToClose(reused);
  laptop.desktop.Find(reused)->className = L"Another";
  const auto inherited = laptop.desktop.Open({.program = L"C:\\b.exe", .closesWhenAsked = false});
  AskToClose(inherited);
  laptop.desktop.Find(inherited)->processId = laptop.processes.Run(L"C:\\c.exe");

  laptop.desktop.Find(laptop.ui.MainWindow())->closesWhenAsked = false;
  const auto explorer = laptop.desktop.Open({.program = L"C:\\Windows\\explorer.exe", .closesWhenAsked = false});
  for (const auto window : {explorer, laptop.ui.MainWindow(), os::WindowHandle::None}) AskToClose(window);
  laptop.Advance(10'000);
  EXPECT_TRUE(Runs(kProgram) && Runs(L"C:\\b.exe") && Runs(L"C:\\c.exe"));
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

TEST_F(WindowCommands, AWallpaperIsSetByTheToolInTwoStepsOneAfterTheOther) {
  const std::wstring tool = L"C:\\Program Files\\NORV\\Tessaview\\NorvTessaviewWallpaper.exe";
  laptop.files.AddFile(tool);
  std::vector<std::uint64_t> startedMs;
  laptop.processes[L"NorvTessaviewWallpaper.exe"] = {.neverEnds = true,
                                                     .onStart = [&] { startedMs.push_back(laptop.NowMs()); }};
  for (const auto& [text, argument] :
       {std::pair(L"WALLPAPER=C:\\My Pictures\\a=b.jpg", L" -UI \"C:\\My Pictures\\a=b.jpg\""),
        {L"WALLPAPERB=C:\\b.jpg", L" -UIB \"C:\\b.jpg\""}}) {
    const auto before = laptop.processes.Starts().size();
    startedMs.clear();
    laptop.ui.Send(text);
    const auto& starts = laptop.processes.Starts();
    ASSERT_EQ(starts.size(), before + 2);
    EXPECT_EQ(startedMs[1] - startedMs[0], 5000U) << "a preparation that hangs is given up";
    EXPECT_EQ(starts[before].commandLine, L"\"" + tool + L"\" -SET Tessaview");
    EXPECT_EQ(starts[before + 1].commandLine, L"\"" + tool + L"\"" + argument);
  }
}

}  // namespace

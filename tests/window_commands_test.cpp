#include "tests/support.h"
#include "uilink/commands/ui_commands.h"

// What the UI has done with windows: closing, hiding, choosing.

namespace {

using namespace support;

constexpr auto kProgram = L"C:\\app.exe";

class WindowCommands : public testing::Test {
 protected:
  LaptopInUse laptop;

  /// With something in the upper half of the handle, which says nothing.
  void Send(std::wstring_view text, os::WindowHandle window, std::int32_t how = 0) {
    constexpr std::uint64_t kUpperHalf = 0xDEAD'BEEF'0000'0000;
    laptop.ui.Send(std::wstring(text), {.handle = static_cast<std::uint64_t>(window) | kUpperHalf, .point = {how, 0}});
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
  const std::wstring onC = L"place 3 (0,1080,1920,1595)", onB = L"place 3 (0,0,1000,700)";
  const Texts down{L"show 1", L"show 6", L"show 9", onC, onC}, up{L"show 1", L"show 6", L"show 9", onB, onB};
  for (const auto& [command, journal] : {std::pair(L"SHOWMIN", Texts{L"show 2"}),
                                         {L"SHOWRESTORE", {L"show 9"}},
                                         {L"APPNAVINORMAL", {L"show 1"}},
                                         {L"APPNAVISHOW", {L"show 5"}},
                                         {L"APPNAVIMAXIMIZED", {L"show 3"}},
                                         {L"APPNAVIRESTORE", {L"show 9"}},
                                         {L"SETTOPMOST", {L"topmost 1"}},
                                         {L"SETNOTOPMOST", {L"topmost 0"}},
                                         {L"VIEWWINUP", up},
                                         {L"VIEWRECALL", down},
                                         {L"LAUNCHMOVETOC", down},
                                         {L"SYSAPPNAVIGATORMOVEUP", up},
                                         {L"SYSAPPNAVIGATORMOVEDOWN", down}}) {
    const auto window = laptop.desktop.Open({.className = L"Chrome"});
    const auto hung = laptop.desktop.Open({.responsive = false});
    const auto start = laptop.NowMs();
    Send(command, window);
    EXPECT_EQ(laptop.NowMs() - start, journal.size() > 1 ? 200U : 0U) << "the shorter pause";
    for (const auto each : {hung, os::WindowHandle::None}) Send(command, each);
    EXPECT_EQ(laptop.desktop.Journal(window), journal);
    EXPECT_TRUE(laptop.desktop.Journal(hung).empty());
  }
  const auto hidden = laptop.desktop.Open({.visible = false});
  Send(L"VIEWRECALL", hidden);
  EXPECT_EQ(laptop.desktop.Journal(hidden), (Texts{L"show 5", L"show 6", onC}));
}

TEST_F(WindowCommands, NeverMeanAWindowOfTheControllers) {
  for (const auto& command : tessaview::UiCommands()) Send(command.text, laptop.window.Handle());
  EXPECT_TRUE(laptop.desktop.Journal(laptop.window.Handle()).empty() && !laptop.ExitCode());
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

TEST_F(WindowCommands, OneThatHangsIsEndedAfterFiveSecondsAndNobodyElse) {
  using Step = std::function<void(Window&)>;
  using sim::ProcessOwner;
  const Step nothing = [](Window&) {}, hang = [](Window&w) { w.responsive = false; };
  const auto give = [this](ProcessOwner owner) {
    return [=, this](Window& w) { w.responsive = false, laptop.processes.GiveTo(w.processId, owner); };
  };
  for (const auto& [isEnded, before, after] :
       {std::tuple<bool, Step, Step>(true, hang, nothing),
        {true, nothing, hang},
        {true, [this](Window& w) { w.busyUntilMs = laptop.NowMs() + 2000; }, hang},  // nobody waits until it is hidden
        {false, nothing, nothing},
        {false, hang, [](Window& w) { w.responsive = true; }},
        {false, [](Window& w) { w.responsive = w.visible = false; }, nothing},
        {false, nothing, [](Window& w) { w.responsive = false, w.visible = true; }},
        {false, hang, [this](Window& w) { laptop.desktop.Open({.title = L"Save?", .processId = w.processId}); }},
        {false, hang, [](Window& w) { w.className = L"Another"; }},
        {false, hang, [this](Window& w) { w.processId = laptop.processes.Run(L"C:\\b.exe"); }},
        {false, give(ProcessOwner::Elevated), nothing},
        {false, give(ProcessOwner::System), nothing},
        {false, give(ProcessOwner::AnotherUser), nothing}}) {
    const auto window = laptop.desktop.Open({.program = kProgram, .closesWhenAsked = false});
    before(*laptop.desktop.Find(window));
    AskToClose(window);
    after(*laptop.desktop.Find(window));
    laptop.Advance(2400);
    EXPECT_TRUE(Runs(kProgram));
    laptop.Advance(200);
    EXPECT_EQ(Runs(kProgram), !isEnded);
    laptop.processes.End(laptop.processes.IdOf(kProgram));
  }
}

TEST_F(WindowCommands, NobodyIsEndedForAWindowOfTheShellOrTheUi) {
  const auto explorer = laptop.desktop.Open({.program = L"C:\\Windows\\explorer.exe"});
  for (const auto window : {explorer, laptop.ui.MainWindow()}) {
    laptop.desktop.Find(window)->responsive = false;
    AskToClose(window);
  }
  laptop.Advance(10'000);
  EXPECT_TRUE(Runs(L"C:\\Windows\\explorer.exe") && laptop.ui.Running());
}

TEST_F(WindowCommands, AFrameIsClosedWithTheApplicationInsideItAndNeverWithItsHost) {
  for (const bool isInside : {true, false}) {
    const auto frame = laptop.OpenFrame(L"Notes", kOnCPanel, isInside);
    laptop.desktop.Find(frame)->closesWhenAsked = false;
    if (isInside) laptop.desktop.Find(laptop.desktop.FindIn(frame, kCoreClass))->responsive = false;
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
  const auto before = laptop.processes.Starts().size();
  const auto asked = laptop.NowMs();
  laptop.window.Send([](const auto& events) {  // two pictures before anybody is at work
    for (const auto* text : {L"WALLPAPER=C:\\My Pictures\\a=b.jpg", L"WALLPAPERB=C:\\b.jpg"}) {
      events.copyData(102, sim::EncodeUiRecord({.text = text}));
    }
  });
  laptop.Advance(10'000);
  EXPECT_EQ(startedMs, (std::vector{asked, asked + 5000, asked + 5000, asked + 10'000}))
      << "a preparation that hangs is given up";
  Texts arguments;
  for (auto at = before; at < laptop.processes.Starts().size(); ++at) {
    arguments.push_back(laptop.processes.Starts()[at].commandLine.substr(tool.size() + 2));
  }
  EXPECT_EQ(arguments, (Texts{L" -SET Tessaview", L" -UI \"C:\\My Pictures\\a=b.jpg\"", L" -SET Tessaview",
                              L" -UIB \"C:\\b.jpg\""}));
}

}  // namespace

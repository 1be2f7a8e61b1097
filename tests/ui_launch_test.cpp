#include "lifecycle/ui_launch.h"

#include "lifecycle/helper_tools.h"
#include "lifecycle/ui_activation.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr auto kFolder = L"C:\\Program Files\\NORV\\Tessaview\\";

TEST(UiLaunch, LaunchesEveryTwoSecondsUntilTheUiShowsAndReportsHowOften) {
  using Case = std::tuple<std::optional<std::uint32_t>, bool, std::size_t, const wchar_t*>;
  for (const auto& [showsAfterMs, opensGuide, launches, usage] :
       {Case{500, false, 1, L"UI_EXIST_WITH_CHECKING_TIMES_1"},
        {2500, false, 2, L"UI_EXIST_WITH_CHECKING_TIMES_2"},
        {3000, true, 2, L"UI_EXIST_WITH_CHECKING_TIMES_2"},
        {37'000, false, 19, L"UI_EXIST_WITH_CHECKING_TIMES_19"},
        {39'000, false, 20, L"NOT_EXIST_MAINUI"},  // it shows after the last launch, which counts as never
        {std::nullopt, false, 20, L"NOT_EXIST_MAINUI"}}) {
    sim::Laptop laptop;
    laptop.apps.uiStartMs = showsAfterMs;
    laptop.apps.uiOpensGuide = opensGuide;
    EXPECT_TRUE(laptop.Boot());
    const auto& activations = laptop.apps.Activations();
    ASSERT_EQ(activations.size(), launches);
    EXPECT_EQ(activations[0].argument, L"FromTessaviewService");
    for (std::size_t i = 1; i < activations.size(); ++i) {
      EXPECT_EQ(activations[i].atMs - activations[i - 1].atMs, 2000U);
    }
    EXPECT_EQ(laptop.trace.Usage(), Texts{usage});
    EXPECT_EQ(laptop.apps.OpenManagers(), 0U);
  }
}

TEST(UiLaunch, LaunchesNothingBesideAWindowOfTheUi) {
  for (const auto open : {&sim::Ui::Start, &sim::Ui::OpenGuide, &sim::Ui::OpenVideo}) {
    sim::Laptop laptop;
    (laptop.ui.*open)();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.apps.Activations().empty());
    EXPECT_EQ(laptop.trace.Usage(), Texts{});
    EXPECT_EQ(laptop.processes.StartsOf(L"NorvTessaviewCheck.exe"), 1U) << "the package is checked all the same";
  }
}

TEST(UiLaunch, BeforeTheEndOfSetupWaitsForTheWindowButActivatesNothing) {
  sim::Laptop laptop({.setupComplete = false});
  const auto begin = laptop.NowMs();
  tessaview::LaunchUIAtStart();
  EXPECT_TRUE(laptop.apps.Activations().empty());
  EXPECT_GE(laptop.NowMs() - begin, 40'000U);
  EXPECT_LT(laptop.NowMs() - begin, 41'000U);
  EXPECT_EQ(laptop.trace.Usage(), Texts{L"NOT_EXIST_MAINUI"});
}

TEST(UiLaunch, MakesTheSurfaceATouchPadWhenTheTouchScreenIsWrong) {
  sim::Laptop laptop;
  laptop.desktop.OpenInForeground({.className = L"BootAppClass"});  // there is no waiting for the desktop either
  laptop.touch.touchScreen().plugged = false;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_TRUE(laptop.apps.Activations().empty());
  EXPECT_EQ(laptop.power.Registrations(), 5U) << "start-up goes on";
}

TEST(HelperTools, AreStartedAsTheUserBeforeTheUiAndNotWaitedFor) {
  sim::Laptop laptop;
  for (const auto* const name : {L"NorvTessaviewWallpaper.exe", L"NorvTessaviewPin.exe"}) {
    laptop.files.AddFile(kFolder + std::wstring(name));
    laptop.processes[name].neverEnds = true;
  }
  std::size_t activationsBefore = 99;
  laptop.processes[L"NorvTessaviewPin.exe"].onStart = [&] { activationsBefore = laptop.apps.Activations().size(); };
  const auto begin = laptop.NowMs();
  EXPECT_TRUE(laptop.Boot());

  const auto& starts = laptop.processes.Starts();
  ASSERT_EQ(starts.size(), 3U);
  EXPECT_EQ(starts[1].commandLine,
            L"\"C:\\Program Files\\NORV\\Tessaview\\NorvTessaviewWallpaper.exe\" -SET Tessaview");
  EXPECT_EQ(starts[2].commandLine, L"\"C:\\Program Files\\NORV\\Tessaview\\NorvTessaviewPin.exe\" -SET Tessaview");
  for (const auto tool : {1, 2}) EXPECT_EQ(starts[tool].session, 1U);
  EXPECT_EQ(activationsBefore, 0U);
  EXPECT_LT(laptop.NowMs() - begin, 5000U);
  EXPECT_EQ(laptop.processes.OpenHandles() + laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments(), 0U);
}

TEST(HelperTools, QuoteAnArgumentSoThatItStaysOne) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"", L"\"\""},
      {L"two\\\\", L"\"two\\\\\\\\\""},
      {L"say \"hi\"", L"\"say \\\"hi\\\"\""},
      {L"back\\\"quote", L"\"back\\\\\\\"quote\""},
  };
  for (const auto& [argument, quoted] : cases) EXPECT_EQ(tessaview::QuotedArgument(argument), quoted);
}

constexpr auto kTool = sim::Laptop::kCheckTool;
constexpr auto kNotFound = L" No Found Package \n";

TEST(PackageCheck, AsksTheToolBesideTheControllerUpToTwentyTimes) {
  sim::Laptop laptop;
  laptop.files.ownProgram = L"D:\\NORV Tools\\Tessaview\\TessaviewService.exe";
  auto& tool = laptop.processes[kTool];
  tool.first.assign(19, 0);
  tool.first[1] = 5;
  tool.first[2] = 0xC0000005;
  tool.exitCode = 1;
  laptop.Boot();
  EXPECT_EQ(laptop.processes.StartsOf(kTool), 20U);
  EXPECT_EQ(laptop.processes.Starts()[0].program, L"D:\\NORV Tools\\Tessaview\\NorvTessaviewCheck.exe");
  EXPECT_TRUE(LogsInOrder(
      laptop, {kNotFound, L" PackageCheck Fail , ExitCode = 5 \n", L" PackageCheck Fail , ExitCode = -1073741819 \n",
               kNotFound, L" Found Package \n", L" Launch UWP \n"}));
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(PackageCheck, GivesUpAfterTwentyAttemptsAndTheControllerRunsOnWithoutUi) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), const wchar_t*, std::uint64_t, bool>;
  for (const auto& [story, arrange, line, atLeastMs, reported] :
       {Case{"not installed", [](sim::Laptop& l) { l.processes[kTool].exitCode = 0; }, kNotFound, 10'000, true},
        {"the tool fails", [](sim::Laptop& l) { l.processes[kTool].exitCode = 3; },
         L" PackageCheck Fail , ExitCode = 3 \n", 10'000, false},
        {"the tool is missing", [](sim::Laptop& l) { l.processes.Remove(kTool); },
         L" CreateProcessWithUserLevel Fail \n", 10'000, false},
        {"the tool hangs", [](sim::Laptop& l) { l.processes[kTool].neverEnds = true; }, kNotFound, 110'000, true}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    arrange(laptop);
    const auto begin = laptop.NowMs();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_GE(laptop.NowMs() - begin, atLeastMs);
    EXPECT_LT(laptop.NowMs() - begin, atLeastMs + 5'000);
    EXPECT_EQ(laptop.trace.Count(line), 20U);
    EXPECT_EQ(laptop.trace.Usage(), reported ? Texts{L"NOT_EXIST_UWP"} : Texts{});
    EXPECT_TRUE(laptop.apps.Activations().empty());
  }
}

TEST(PackageCheck, ReportsTheMissingPackageAtTheNineteenthAttemptOnly) {
  for (const std::size_t otherVerdicts : {18U, 19U}) {
    sim::Laptop laptop;
    auto& tool = laptop.processes[kTool];
    tool.first.assign(otherVerdicts, 9);
    tool.exitCode = 0;
    std::vector<std::size_t> reportsBefore;  // the n-th attempt
    tool.onStart = [&] { reportsBefore.push_back(laptop.trace.Usage().size()); };
    laptop.Boot();
    EXPECT_EQ(reportsBefore.at(18), 0U);
    EXPECT_EQ(reportsBefore.at(19), otherVerdicts == 18 ? 1U : 0U);
  }
}

TEST(PackageCheck, KeepsTheVerdictBeforeARunThatHangs) {
  sim::Laptop laptop;
  auto& tool = laptop.processes[kTool];
  tool.exitCode = 6;
  tool.onStart = [&] { tool.neverEnds = true; };  // the first run ends, all others hang
  laptop.Boot();
  EXPECT_EQ(laptop.trace.Count(L" PackageCheck Fail , ExitCode = 6 \n"), 20U);
  EXPECT_EQ(laptop.trace.Count(L" WaitForSingleObject WAIT_TIMEOUT \n"), 19U);
}

}  // namespace

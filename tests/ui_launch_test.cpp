#include "lifecycle/ui_launch.h"

#include "lifecycle/helper_tools.h"
#include "lifecycle/ui_activation.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr auto kTool = Laptop::kCheckTool;

TEST(UiLaunch, LaunchesEveryTwoSecondsUntilTheUiShowsAndReportsHowOften) {
  struct Start {
    std::uint32_t showsAfterMs;
    bool opensGuide = false;
    std::size_t launches;
    std::wstring usage = L"UI_EXIST_WITH_CHECKING_TIMES_" + std::to_wstring(launches);
  };
  for (const auto& start : {Start{.showsAfterMs = 500, .launches = 1},
                            {.showsAfterMs = 3000, .opensGuide = true, .launches = 2},
                            {.showsAfterMs = 37'000, .launches = 19},
                            // It shows after the last launch, which counts as never.
                            {.showsAfterMs = 39'000, .launches = 20, .usage = L"NOT_EXIST_MAINUI"}}) {
    Laptop laptop;
    laptop.apps.uiStartMs = start.showsAfterMs;
    laptop.apps.uiOpensGuide = start.opensGuide;
    const auto desktopMs = laptop.NowMs() + 60'000;  // before it there is no window in the foreground
    laptop.After(60'000, [&, shell = laptop.desktop.Foreground()] { laptop.desktop.SetForeground(shell); });
    laptop.desktop.SetForeground(os::WindowHandle::None);
    EXPECT_TRUE(laptop.Boot());
    const auto& activations = laptop.apps.Activations();
    ASSERT_EQ(activations.size(), start.launches);
    EXPECT_GE(activations[0].atMs, desktopMs);
    EXPECT_EQ(activations[0].argument, L"FromTessaviewService");
    EXPECT_EQ(activations.back().atMs - activations[0].atMs, 2000 * (start.launches - 1));
    EXPECT_EQ(laptop.trace.Usage(), Texts{start.usage});
  }
}

TEST(UiActivation, TellsWhatCameOfIt) {
  Laptop laptop;
  const auto lineOf = [&](const wchar_t* id) {
    laptop.trace.Clear();
    tessaview::LaunchByAumid(id, L"argument");
    auto line = laptop.trace.Lines().rbegin();
    return line->starts_with(L"[Failure]") ? *std::next(line) : *line;  // our own stands behind the stated one
  };
  EXPECT_EQ(lineOf(sim::Apps::kUiId), L"AppActivationMgr->ActivateApplication Sucessed\n");
  EXPECT_EQ(laptop.apps.Activations().at(0).argument, L"argument");
  EXPECT_EQ(lineOf(L"Other!App"), L"AppActivationMgr->ActivateApplication Failed\n");
  EXPECT_EQ(lineOf(L""), L"ShellExecute sucessed\n");
  laptop.apps.shellAnswer = 32;
  EXPECT_EQ(lineOf(L""), L"ShellExecute failed, return value:32\n Use AUMID launch. \n");
  laptop.faults.Fail<&os::CreateActivationManager>();
  EXPECT_EQ(lineOf(sim::Apps::kUiId), L"CoCreateInstance Failed\n");
  laptop.faults.Fail<&os::JoinCom>();
  EXPECT_EQ(lineOf(sim::Apps::kUiId), L"CoInitializeEx Failed\n");
  EXPECT_EQ(laptop.apps.Activations().size(), 2U);
}

TEST(UiLaunch, LaunchesNothingBesideAWindowOfTheUi) {
  for (const auto open : {&sim::Ui::Start, &sim::Ui::OpenGuide, &sim::Ui::OpenVideo}) {
    Laptop laptop;
    (laptop.ui.*open)();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.apps.Activations().empty() && laptop.trace.Usage().empty());
    EXPECT_EQ(laptop.processes.StartsOf(kTool), 1U) << "the package is checked all the same";
  }
}

TEST(UiLaunch, HappensAlsoWhenSetupEndsBetweenTheQuestionAndTheWaitForIt) {
  Laptop laptop({.setupComplete = false});
  laptop.faults.Slow<&os::WaitForSetup>(100);
  laptop.After(50, [&laptop] { laptop.sessions.setupComplete = true; });
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.apps.Activations().size(), 1U);
}

TEST(UiLaunch, MakesTheSurfaceATouchPadWhenTheTouchScreenIsWrong) {
  Laptop laptop;
  laptop.desktop.OpenInForeground({.className = L"BootAppClass"});  // there is no waiting for the desktop either
  laptop.touch.touchScreen().plugged = false;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_TRUE(laptop.apps.Activations().empty());
}

TEST(HelperTools, AreStartedAsTheUserBeforeTheUiAndNotWaitedFor) {
  const std::wstring folder = L"C:\\Program Files\\NORV\\Tessaview\\";
  Laptop laptop;
  for (const auto* const name : {L"NorvTessaviewWallpaper.exe", L"NorvTessaviewPin.exe"}) {
    laptop.files.AddFile(folder + name);
    laptop.processes[name].neverEnds = true;
  }
  std::size_t activationsBefore = 99;
  laptop.processes[L"NorvTessaviewPin.exe"].onStart = [&] { activationsBefore = laptop.apps.Activations().size(); };
  const auto begin = laptop.NowMs();
  EXPECT_TRUE(laptop.Boot());
  const auto& starts = laptop.processes.Starts();
  ASSERT_EQ(starts.size(), 3U);
  EXPECT_EQ(starts[1].commandLine, L"\"" + folder + L"NorvTessaviewWallpaper.exe\" -SET Tessaview");
  EXPECT_EQ(starts[2].commandLine, L"\"" + folder + L"NorvTessaviewPin.exe\" -SET Tessaview");
  EXPECT_EQ(activationsBefore, 0U);
  EXPECT_LT(laptop.NowMs() - begin, 5000U);
}

TEST(HelperTools, QuoteAnArgumentSoThatItStaysOne) {
  for (const auto& [argument, quoted] : {std::pair(L"", L"\"\""),
                                         {L"two\\\\", L"\"two\\\\\\\\\""},
                                         {L"say \"hi\"", L"\"say \\\"hi\\\"\""},
                                         {L"back\\\"quote", L"\"back\\\\\\\"quote\""}}) {
    EXPECT_EQ(tessaview::QuotedArgument(argument), quoted);
  }
}

TEST(PackageCheck, GivesUpAfterTwentyAttemptsAndTheControllerRunsOnWithoutUi) {
  struct Trouble {
    const wchar_t* line;
    void (*arrange)(Laptop& laptop);
    bool isReported = false;
  };
  for (const auto& trouble :
       {Trouble{.line = L" No Found Package \n",
       .arrange = [](auto& l) { l.processes[kTool].exitCode = 0; },
       .isReported = true},
        {.line = L" PackageCheck Fail , ExitCode = 3 \n", .arrange = [](auto& l) { l.processes[kTool].exitCode = 3; }},
        {.line = L" CreateProcessWithUserLevel Fail \n", .arrange = [](auto& l) { l.processes.Remove(kTool); }}}) {
    Laptop laptop;
    trouble.arrange(laptop);
    const auto begin = laptop.NowMs();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_GE(laptop.NowMs() - begin, 10'000U);
    EXPECT_LT(laptop.NowMs() - begin, 15'000U);
    EXPECT_EQ(laptop.trace.Count(trouble.line), 20U);
    EXPECT_EQ(laptop.trace.Usage(), trouble.isReported ? Texts{L"NOT_EXIST_UWP"} : Texts{});
    EXPECT_TRUE(laptop.apps.Activations().empty());
  }
}

TEST(PackageCheck, ReportsTheMissingPackageAtTheNineteenthAttemptOnly) {
  for (const std::size_t otherVerdicts : {18U, 19U}) {
    Laptop laptop;
    auto& tool = laptop.processes[kTool];
    tool.first.assign(otherVerdicts, 9);
    tool.exitCode = 0;
    laptop.files.ownProgram = L"D:\\NORV Tools\\Tessaview\\TessaviewService.exe";
    laptop.Boot();
    EXPECT_EQ(laptop.trace.Usage().size(), otherVerdicts == 18 ? 1U : 0U);
    EXPECT_EQ(laptop.processes.StartsOf(kTool), 20U);
    EXPECT_EQ(laptop.processes.Starts()[0].program, L"D:\\NORV Tools\\Tessaview\\NorvTessaviewCheck.exe");
  }
}

TEST(PackageCheck, KeepsTheVerdictBeforeARunThatHangs) {
  Laptop laptop;
  auto& tool = laptop.processes[kTool];
  tool.exitCode = 6;
  tool.onStart = [&] { tool.neverEnds = true; };  // the first run ends, all others hang
  laptop.Boot();
  EXPECT_EQ(laptop.trace.Count(L" PackageCheck Fail , ExitCode = 6 \n"), 20U);
}

}  // namespace

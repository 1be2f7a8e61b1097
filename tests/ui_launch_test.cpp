#include "lifecycle/ui_launch.h"

#include <gtest/gtest.h>

#include "lifecycle/helper_tools.h"
#include "lifecycle/ui_activation.h"
#include "sim/laptop.h"
#include "tests/support.h"

namespace {

using Usage = std::vector<std::wstring>;

constexpr auto kFolder = L"C:\\Program Files\\NORV\\Tessaview\\";

// ---- Launching until the UI shows ----

TEST(UiLaunch, ActivatesThePackagedUiAndTellsItWhoDid) {
  sim::Laptop laptop;
  laptop.Boot();
  ASSERT_EQ(laptop.apps.Activations().size(), 1U);
  EXPECT_EQ(laptop.apps.Activations()[0].appUserModelId,
            L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe!7C31A0D4.TessaviewMaster");
  EXPECT_EQ(laptop.apps.Activations()[0].argument, L"FromTessaviewService");
  EXPECT_TRUE(support::LogsInOrder(laptop, {L" Found Package \n", L" Launch UWP \n"}));
}

TEST(UiLaunch, LaunchesEveryTwoSecondsUntilTheUiShowsAndReportsHowOften) {
  struct Case {
    std::optional<std::uint32_t> showsAfterMs;  // the first activation
    std::size_t launches;
    const wchar_t* usage;
  };
  for (const auto& c : {Case{500, 1, L"UI_EXIST_WITH_CHECKING_TIMES_1"},
                        {2500, 2, L"UI_EXIST_WITH_CHECKING_TIMES_2"},
                        {37'000, 19, L"UI_EXIST_WITH_CHECKING_TIMES_19"},
                        {39'000, 20, L"NOT_EXIST_MAINUI"},  // it shows after the last launch, which counts as never
                        {std::nullopt, 20, L"NOT_EXIST_MAINUI"}}) {
    SCOPED_TRACE(c.launches);
    sim::Laptop laptop;
    laptop.apps.uiStartMs = c.showsAfterMs;
    EXPECT_TRUE(laptop.Boot());
    const auto& activations = laptop.apps.Activations();
    ASSERT_EQ(activations.size(), c.launches);
    for (std::size_t i = 1; i < activations.size(); ++i) {
      EXPECT_EQ(activations[i].atMs - activations[i - 1].atMs, 2000U);
    }
    EXPECT_EQ(laptop.trace.Count(L" Launch UWP \n"), c.launches);
    EXPECT_EQ(laptop.trace.Usage(), Usage{c.usage});
    EXPECT_EQ(laptop.apps.OpenManagers(), 0U);
  }
}

TEST(UiLaunch, LaunchesNothingBesideAWindowOfTheUi) {
  struct Case {
    const char* window;
    void (*open)(sim::Ui&);
  };
  for (const auto& c : {Case{"main", [](sim::Ui& ui) { ui.Start(); }},
                        {"guide", [](sim::Ui& ui) { ui.OpenGuide(); }},
                        {"video", [](sim::Ui& ui) { ui.OpenVideo(); }}}) {
    SCOPED_TRACE(c.window);
    sim::Laptop laptop;
    c.open(laptop.ui);
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.apps.Activations().empty());
    EXPECT_EQ(laptop.trace.Usage(), Usage{});
    EXPECT_EQ(laptop.processes.StartsOf(L"NorvTessaviewCheck.exe"), 1U) << "the package is checked all the same";
  }
}

TEST(UiLaunch, StopsWhenTheGuideComesInsteadOfTheMainWindow) {
  sim::Laptop laptop;
  laptop.apps.uiOpensGuide = true;
  laptop.apps.uiStartMs = 3000;
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.apps.Activations().size(), 2U);
  EXPECT_EQ(laptop.trace.Usage(), Usage{L"UI_EXIST_WITH_CHECKING_TIMES_2"});
}

TEST(UiLaunch, BeforeTheEndOfSetupWaitsForTheWindowButActivatesNothing) {
  sim::Laptop laptop({.setupComplete = false});
  const auto begin = laptop.NowMs();
  tessaview::LaunchUIAtStart();
  EXPECT_TRUE(laptop.apps.Activations().empty());
  EXPECT_FALSE(laptop.trace.Contains(L" Launch UWP \n"));
  EXPECT_GE(laptop.NowMs() - begin, 40'000U);
  EXPECT_LT(laptop.NowMs() - begin, 41'000U);
  EXPECT_EQ(laptop.trace.Usage(), Usage{L"NOT_EXIST_MAINUI"});
}

TEST(UiLaunch, MakesTheSurfaceATouchPadWhenTheTouchScreenIsWrong) {
  sim::Laptop laptop;
  laptop.desktop.OpenInForeground({.className = L"BootAppClass"});  // there is no waiting for the desktop either
  tessaview::gTouchScreenHidWrong.set(true);
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_TRUE(laptop.trace.Contains(L"TouchScreen HID is wrong, do not show UI and set mode to touch pad mode."));
  EXPECT_TRUE(laptop.processes.Starts().empty());
  EXPECT_TRUE(laptop.apps.Activations().empty());
  EXPECT_EQ(laptop.power.Registrations(), 5U) << "start-up goes on";
}

// ---- One activation ----

TEST(UiActivation, SaysHowFarItCame) {
  struct Case {
    const char* story;
    void (*arrange)(sim::Laptop&);
    const wchar_t* line;
    std::size_t activations;
  };
  const Case cases[] = {
      {"all is well", [](sim::Laptop&) {}, L"AppActivationMgr->ActivateApplication Sucessed\n", 1},
      {"the package is gone", [](sim::Laptop& l) { l.apps.uiInstalled = false; },
       L"AppActivationMgr->ActivateApplication Failed\n", 1},
      {"no manager", [](sim::Laptop& l) { l.faults.Fail<&os::CreateActivationManager>(); },
       L"CoCreateInstance Failed\n", 0},
      {"no COM", [](sim::Laptop& l) { l.faults.Fail<&os::JoinCom>(); }, L"CoInitializeEx Failed\n", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop;
    c.arrange(laptop);
    tessaview::StartUiLaunchThread();
    EXPECT_TRUE(laptop.Settle());
    EXPECT_EQ(laptop.trace.Lines(), (std::vector<std::wstring>{L"ShellExecute Failed, Use AUMID Launch.\n", c.line}));
    EXPECT_EQ(laptop.apps.Activations().size(), c.activations);
    EXPECT_EQ(laptop.apps.OpenManagers(), 0U);
  }
}

TEST(UiActivation, OfNoApplicationAsksTheShellToOpenNothing) {
  struct Case {
    std::int64_t answer;
    const wchar_t* line;
  };
  for (const auto& c : {Case{33, L"ShellExecute sucessed\n"},
                        {32, L"ShellExecute failed, return value:32\n Use AUMID launch. \n"},
                        {0, L"ShellExecute failed, return value:0\n Use AUMID launch. \n"}}) {
    SCOPED_TRACE(c.answer);
    sim::Laptop laptop;
    laptop.apps.shellAnswer = c.answer;
    tessaview::LaunchByAumid(L"", L"FromTessaviewService");
    EXPECT_EQ(laptop.trace.Lines(), std::vector<std::wstring>{c.line});
    EXPECT_TRUE(laptop.apps.Activations().empty());
  }
}

// ---- The helper tools ----

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
  for (const auto tool : {1, 2}) {
    EXPECT_EQ(starts[tool].session, 1U);
    EXPECT_EQ(starts[tool].desktop, L"WinSta0\\Default");
  }
  EXPECT_EQ(activationsBefore, 0U);
  EXPECT_LT(laptop.NowMs() - begin, 5000U);
  EXPECT_EQ(laptop.processes.OpenHandles() + laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments(), 0U);
}

TEST(HelperTools, QuoteAnArgumentSoThatItStaysOne) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"", L"\"\""},
      {L"plain", L"\"plain\""},
      {L"C:\\Program Files\\a.exe", L"\"C:\\Program Files\\a.exe\""},
      {L"C:\\ends in one\\", L"\"C:\\ends in one\\\\\""},
      {L"two\\\\", L"\"two\\\\\\\\\""},
      {L"say \"hi\"", L"\"say \\\"hi\\\"\""},
      {L"back\\\"quote", L"\"back\\\\\\\"quote\""},
      {L"\"", L"\"\\\"\""},
  };
  for (const auto& [argument, quoted] : cases) EXPECT_EQ(tessaview::QuotedArgument(argument), quoted);
}

}  // namespace

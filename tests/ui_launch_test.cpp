#include "lifecycle/ui_launch.h"

#include <gtest/gtest.h>

#include "lifecycle/helper_tools.h"
#include "lifecycle/ui_activation.h"
#include "tests/support.h"

namespace {

using Usage = std::vector<std::wstring>;

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
    SCOPED_TRACE(launches);
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
    EXPECT_EQ(laptop.trace.Usage(), Usage{usage});
    EXPECT_EQ(laptop.apps.OpenManagers(), 0U);
  }
}

TEST(UiLaunch, LaunchesNothingBesideAWindowOfTheUi) {
  for (const auto open : {&sim::Ui::Start, &sim::Ui::OpenGuide, &sim::Ui::OpenVideo}) {
    sim::Laptop laptop;
    (laptop.ui.*open)();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.apps.Activations().empty());
    EXPECT_EQ(laptop.trace.Usage(), Usage{});
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
  EXPECT_EQ(laptop.trace.Usage(), Usage{L"NOT_EXIST_MAINUI"});
}

TEST(UiLaunch, MakesTheSurfaceATouchPadWhenTheTouchScreenIsWrong) {
  sim::Laptop laptop;
  laptop.desktop.OpenInForeground({.className = L"BootAppClass"});  // there is no waiting for the desktop either
  tessaview::gTouchScreenHidWrong.set(true);
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

}  // namespace

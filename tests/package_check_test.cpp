// Whether the UI's package is installed: the check tool's verdicts before the UI is launched.

#include <gtest/gtest.h>

#include "tests/support.h"

namespace {

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
  EXPECT_TRUE(support::LogsInOrder(
      laptop, {kNotFound, L" PackageCheck Fail , ExitCode = 5 \n", L" PackageCheck Fail , ExitCode = -1073741819 \n",
               kNotFound, L" Found Package \n", L" Launch UWP \n"}));
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(PackageCheck, GivesUpAfterTwentyAttemptsAndTheControllerRunsOnWithoutUi) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), const wchar_t*, std::uint64_t, bool>;
  const Case cases[] = {
      {"not installed", [](sim::Laptop& l) { l.processes[kTool].exitCode = 0; }, kNotFound, 10'000, true},
      {"the tool fails", [](sim::Laptop& l) { l.processes[kTool].exitCode = 3; },
       L" PackageCheck Fail , ExitCode = 3 \n", 10'000, false},
      {"the tool is missing", [](sim::Laptop& l) { l.processes.Remove(kTool); }, L" CreateProcessWithUserLevel Fail \n",
       10'000, false},
      {"the tool hangs", [](sim::Laptop& l) { l.processes[kTool].neverEnds = true; }, kNotFound, 110'000, true},
  };
  for (const auto& [story, arrange, line, atLeastMs, reported] : cases) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    arrange(laptop);
    const auto begin = laptop.NowMs();
    EXPECT_TRUE(laptop.Boot());
    EXPECT_GE(laptop.NowMs() - begin, atLeastMs);
    EXPECT_LT(laptop.NowMs() - begin, atLeastMs + 5'000);
    EXPECT_EQ(laptop.trace.Count(line), 20U);
    EXPECT_EQ(laptop.trace.Usage(),
              reported ? std::vector<std::wstring>{L"NOT_EXIST_UWP"} : std::vector<std::wstring>{});
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

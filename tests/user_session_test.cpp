// Running programs as the user before the machine.

#include "lifecycle/user_session.h"

#include "core/user_rights.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr auto kTool = L"C:\\Tools\\Tool.exe";
constexpr std::uint32_t kUntouched = 4711;

/// What one run of the tool gave, and how long it held the caller up.
struct Run {
  bool started = false;
  std::uint32_t exitCode = kUntouched;
  std::uint64_t tookMs = 0;
};

Run RunTool(Laptop& laptop) {
  Run run;
  const auto begin = laptop.NowMs();
  run.started = tessaview::CreateProcessWithUserLevel(kTool, run.exitCode);
  run.tookMs = laptop.NowMs() - begin;
  return run;
}

TEST(UserSession, RunsProgramsAsItsOwnUserOrElseTheFirstActiveOneOnTheInteractiveDesktop) {
  using States = std::vector<sim::SessionState>;
  for (const auto& [session, states] :
       {std::pair(1U, States{{0, Sessions::kDisconnected, false}, {1, Sessions::kActive, true}}),
        {1U, {{1, Sessions::kDisconnected, true}, {3, Sessions::kActive, true}}},
        {3U, {{1, Sessions::kDisconnected, false}, {3, Sessions::kActive, true}, {2, Sessions::kActive, true}}},
        {0U, {{0, Sessions::kListen, true}, {1, Sessions::kDisconnected, false}}}}) {
    Laptop laptop;
    laptop.sessions.all = states;
    laptop.processes[L"Tool.exe"].exitCode = 7;
    EXPECT_EQ(RunTool(laptop).exitCode, 7U);
    const auto& start = laptop.processes.Starts().at(0);
    EXPECT_EQ(start.program, kTool);
    EXPECT_EQ(start.desktop, L"WinSta0\\Default");
    EXPECT_EQ(start.session, session);
    EXPECT_EQ(start.environmentSession, session);
  }
}

TEST(UserSession, SaysWhyAProgramCannotBeStarted) {
  struct Trouble {
    void (*arrange)(Laptop& laptop);
    const wchar_t* line;
    std::size_t handlesLeft = 0;
  };
  for (const auto& trouble :
       {Trouble{.arrange = [](Laptop& l) { l.faults.Fail<&os::SessionUserToken>({.error = 5, .times = 1}); },
       .line = L" WTSQueryUserToken api GetLastError = 5 \n"},
        Trouble{.arrange = [](Laptop& l) { l.sessions.SignOut(), l.faults.Fail<&os::Sessions>(); },  // so session 0
                .line = L" WTSQueryUserToken api GetLastError = 1008 \n"},
        // On this path neither token nor environment is released, and it stays so.
        Trouble{.arrange = [](Laptop& l) { l.processes[L"Tool.exe"].error = 1260; },
        .line = L" CreateProcessAsUser api GetLastError = 1260 \n",
        .handlesLeft = 1}}) {
    Laptop laptop;
    laptop.processes[L"Tool.exe"];
    trouble.arrange(laptop);
    const auto run = RunTool(laptop);
    EXPECT_FALSE(run.started);
    EXPECT_EQ(run.exitCode, kUntouched);
    EXPECT_EQ(laptop.trace.Lines(), Texts{trouble.line});
    EXPECT_EQ(laptop.sessions.OpenTokens(), trouble.handlesLeft);
    EXPECT_EQ(laptop.sessions.OpenEnvironments(), trouble.handlesLeft);
  }
}

TEST(UserSession, WaitsFiveSecondsForAProgram) {
  Laptop laptop;
  auto& tool = laptop.processes[L"Tool.exe"];
  tool.exitCode = 9;
  for (const std::uint32_t runMs : {0U, 4999U, 5001U}) {
    tool.runMs = runMs;
    const auto run = RunTool(laptop);
    EXPECT_TRUE(run.started) << "a program that takes long was started all the same";
    EXPECT_EQ(run.exitCode, runMs < 5000 ? 9U : kUntouched);
    EXPECT_EQ(run.tookMs, std::min(runMs, 5000U));
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.processes.OpenHandles(), 0U);
  }
}

}  // namespace

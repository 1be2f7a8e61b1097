// Running programs as the user before the machine.

#include "lifecycle/user_session.h"

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

Run RunTool(sim::Laptop& laptop) {
  Run run;
  const auto begin = laptop.NowMs();
  run.started = tessaview::CreateProcessWithUserLevel(kTool, run.exitCode);
  run.tookMs = laptop.NowMs() - begin;
  return run;
}

TEST(UserSession, RunsProgramsAsTheFirstActiveUserOnTheInteractiveDesktop) {
  using Case = std::tuple<const char*, std::vector<sim::SessionState>, std::uint32_t>;
  for (const auto& [story, sessions, session] :
       {Case{"one user", {{0, Sessions::kDisconnected, false}, {1, Sessions::kActive, true}}, 1},
        {"two at once",
         {{1, Sessions::kDisconnected, true}, {3, Sessions::kActive, true}, {2, Sessions::kActive, true}},
         3},
        {"nobody active", {{0, Sessions::kListen, true}, {1, Sessions::kDisconnected, true}}, 0}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    laptop.sessions.all = sessions;
    laptop.processes[L"Tool.exe"].exitCode = 7;

    const auto run = RunTool(laptop);
    EXPECT_EQ(run.exitCode, 7U);
    const auto& start = laptop.processes.Starts().at(0);
    EXPECT_EQ(start.program, kTool);
    EXPECT_EQ(start.desktop, L"WinSta0\\Default");
    EXPECT_EQ(start.session, session);
    EXPECT_EQ(start.environmentSession, session);
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments() + laptop.processes.OpenHandles(), 0U);
  }
}

TEST(UserSession, SaysWhyAProgramCannotBeStarted) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), const wchar_t*, std::size_t>;
  for (const auto& [story, arrange, line, handlesLeft] :
       {Case{"nobody is signed in to session 0, which counts when no list is to be had",
             [](sim::Laptop& l) { l.faults.Fail<&os::Sessions>(); }, L" WTSQueryUserToken api GetLastError = 1008 \n",
             0},
        {"the token is refused", [](sim::Laptop& l) { l.faults.Fail<&os::SessionUserToken>({.error = 1314}); },
         L" WTSQueryUserToken api GetLastError = 1314 \n", 0},
        {"there is no environment", [](sim::Laptop& l) { l.faults.Fail<&os::CreateEnvironment>({.error = 203}); },
         L" CreateEnvironmentBlock api GetLastError = 203 \n", 0},
        // On this path neither token nor environment is released, and it stays so.
        {"the program is refused", [](sim::Laptop& l) { l.processes[L"Tool.exe"].error = 1260; },
         L" CreateProcessAsUser api GetLastError = 1260 \n", 1}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    laptop.processes[L"Tool.exe"];
    arrange(laptop);

    const auto run = RunTool(laptop);
    EXPECT_FALSE(run.started);
    EXPECT_EQ(run.exitCode, kUntouched);
    EXPECT_EQ(laptop.trace.Lines(), Texts{line});
    EXPECT_EQ(laptop.sessions.OpenTokens(), handlesLeft);
    EXPECT_EQ(laptop.sessions.OpenEnvironments(), handlesLeft);
  }
}

TEST(UserSession, WaitsFiveSecondsForAProgram) {
  using Case = std::tuple<std::uint32_t, bool, std::uint32_t, std::uint64_t>;
  for (const auto& [runMs, neverEnds, exitCode, tookMs] :
       {Case{0, false, 9, 0}, {4999, false, 9, 4999}, {5001, false, kUntouched, 5000}, {0, true, kUntouched, 5000}}) {
    sim::Laptop laptop;
    auto& tool = laptop.processes[L"Tool.exe"];
    tool.exitCode = 9;
    tool.runMs = runMs;
    tool.neverEnds = neverEnds;

    const auto run = RunTool(laptop);
    EXPECT_TRUE(run.started) << "a program that takes long was started all the same";
    EXPECT_EQ(run.exitCode, exitCode);
    EXPECT_EQ(run.tookMs, tookMs);
    EXPECT_EQ(laptop.trace.Contains(L" WaitForSingleObject WAIT_TIMEOUT \n"), exitCode == kUntouched);
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.processes.OpenHandles(), 0U);
  }

  sim::Laptop laptop;
  laptop.processes[L"Tool.exe"].exitCode = 9;
  laptop.faults.Fail<&os::WaitForProcess>({.error = 6});
  EXPECT_EQ(RunTool(laptop).exitCode, kUntouched) << "a wait that fails gives no verdict either";
}

}  // namespace

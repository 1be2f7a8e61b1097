// Running programs as the user before the machine.

#include "lifecycle/user_session.h"

#include <gtest/gtest.h>

#include "sim/laptop.h"
#include "tests/support.h"

namespace {

using sim::Sessions;

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
  struct Case {
    const char* story;
    std::vector<sim::SessionState> sessions;
    std::uint32_t session;
  };
  const Case cases[] = {
      {"one user", {{0, Sessions::kDisconnected, false}, {1, Sessions::kActive, true}}, 1},
      {"two at once",
       {{1, Sessions::kDisconnected, true}, {3, Sessions::kActive, true}, {2, Sessions::kActive, true}},
       3},
      {"nobody active", {{0, Sessions::kListen, true}, {1, Sessions::kDisconnected, true}}, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop;
    laptop.sessions.all = c.sessions;
    laptop.processes[L"Tool.exe"].exitCode = 7;

    const auto run = RunTool(laptop);
    EXPECT_TRUE(run.started);
    EXPECT_EQ(run.exitCode, 7U);
    ASSERT_EQ(laptop.processes.Starts().size(), 1U);
    const auto& start = laptop.processes.Starts()[0];
    EXPECT_EQ(start.program, kTool);
    EXPECT_EQ(start.commandLine, L"");
    EXPECT_EQ(start.desktop, L"WinSta0\\Default");
    EXPECT_EQ(start.session, c.session);
    EXPECT_EQ(start.environmentSession, c.session);
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments() + laptop.processes.OpenHandles(), 0U);
  }
}

TEST(UserSession, AsksForSessionZeroWhenTheSessionsCannotBeListed) {
  sim::Laptop laptop;
  laptop.processes[L"Tool.exe"];
  laptop.faults.Fail<&os::Sessions>();
  EXPECT_FALSE(RunTool(laptop).started) << "nobody is signed in to session 0";
  EXPECT_TRUE(laptop.trace.Contains(L" WTSQueryUserToken api GetLastError = 1008 \n"));

  laptop.sessions.all[0].signedIn = true;
  EXPECT_TRUE(RunTool(laptop).started);
  EXPECT_EQ(laptop.processes.Starts().at(0).session, 0U);
}

TEST(UserSession, SaysWhyAProgramCannotBeStarted) {
  struct Case {
    const char* story;
    void (*arrange)(sim::Laptop&);
    const wchar_t* line;
    std::size_t handlesLeft;  // tokens, and as many environments
  };
  const Case cases[] = {
      {"nobody is signed in", [](sim::Laptop& l) { l.sessions.SignOut(); },
       L" WTSQueryUserToken api GetLastError = 1008 \n", 0},
      {"the token is refused", [](sim::Laptop& l) { l.faults.Fail<&os::SessionUserToken>({.error = 1314}); },
       L" WTSQueryUserToken api GetLastError = 1314 \n", 0},
      {"there is no environment", [](sim::Laptop& l) { l.faults.Fail<&os::CreateEnvironment>({.error = 203}); },
       L" CreateEnvironmentBlock api GetLastError = 203 \n", 0},
      // On this path neither token nor environment is released, and it stays so.
      {"the program is refused", [](sim::Laptop& l) { l.processes[L"Tool.exe"].error = 1260; },
       L" CreateProcessAsUser api GetLastError = 1260 \n", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop;
    laptop.processes[L"Tool.exe"];
    c.arrange(laptop);

    const auto run = RunTool(laptop);
    EXPECT_FALSE(run.started);
    EXPECT_EQ(run.exitCode, kUntouched);
    EXPECT_EQ(laptop.trace.Lines(), std::vector<std::wstring>{c.line});
    EXPECT_EQ(laptop.sessions.OpenTokens(), c.handlesLeft);
    EXPECT_EQ(laptop.sessions.OpenEnvironments(), c.handlesLeft);
    EXPECT_EQ(laptop.processes.OpenHandles(), 0U);
  }
}

TEST(UserSession, WaitsFiveSecondsForAProgram) {
  struct Case {
    std::uint32_t runMs;
    bool neverEnds;
    std::uint32_t exitCode;
    std::uint64_t tookMs;
  };
  for (const auto& c :
       {Case{0, false, 9, 0}, {4999, false, 9, 4999}, {5001, false, kUntouched, 5000}, {0, true, kUntouched, 5000}}) {
    SCOPED_TRACE(c.runMs);
    sim::Laptop laptop;
    auto& tool = laptop.processes[L"Tool.exe"];
    tool.exitCode = 9;
    tool.runMs = c.runMs;
    tool.neverEnds = c.neverEnds;

    const auto run = RunTool(laptop);
    EXPECT_TRUE(run.started) << "a program that takes long was started all the same";
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_EQ(run.tookMs, c.tookMs);
    EXPECT_EQ(laptop.trace.Contains(L" WaitForSingleObject WAIT_TIMEOUT \n"), c.exitCode == kUntouched);
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments() + laptop.processes.OpenHandles(), 0U);
  }

  sim::Laptop laptop;
  laptop.processes[L"Tool.exe"].exitCode = 9;
  laptop.faults.Fail<&os::WaitForProcess>({.error = 6});
  const auto run = RunTool(laptop);
  EXPECT_TRUE(run.started);
  EXPECT_EQ(run.exitCode, kUntouched) << "a wait that fails gives no verdict either";
  EXPECT_TRUE(laptop.trace.Contains(L" WaitForSingleObject api GetLastError = 6 \n"));
}

}  // namespace

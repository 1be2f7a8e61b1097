// The UI ends, and the watchdog brings it back.

#include "tests/support.h"

namespace {

using namespace support;

constexpr std::uint32_t kMinuteMs = 60'000;
constexpr auto kKilled = L" ******* NorvTessaview.exe process be killed ******* \n";

/// A laptop whose UI runs and has said that it is ready.
class WatchedUi : public LaptopInUse {
 public:
  WatchedUi() {
    Advance(kMinuteMs);
    ForgetTheStory(*this);
  }

  /// The UI's process is killed; its windows go with it. Nothing settles: the watchdog takes minutes.
  void KillUi() { processes.End(processes.IdOf(kUiProgram)); }

  [[nodiscard]] std::size_t Relaunches() const { return apps.Activations().size() - activationsBefore_; }

 private:
  std::size_t activationsBefore_ = apps.Activations().size();
};

TEST(Watchdog, BringsTheUiBackFiveMinutesAfterItEnded) {
  WatchedUi laptop;
  laptop.KillUi();
  laptop.Advance(5 * kMinuteMs - 1000);
  EXPECT_EQ(laptop.Relaunches(), 0U);
  laptop.Advance(5000);
  EXPECT_TRUE(laptop.ui.Running());
  ASSERT_EQ(laptop.Relaunches(), 1U);
  EXPECT_EQ(laptop.apps.Activations().back().argument, L"") << "the UI is not told that it is a start";
  laptop.Advance(kMinuteMs);
  EXPECT_EQ(laptop.trace.Usage(), Texts{L"UI_EXIST_WITH_CHECKING_TIMES_1"});
}

TEST(Watchdog, BringsTheUiBackWhoseWindowsOutliveItAndNobodyWaitsForThem) {
  WatchedUi laptop;
  const auto quietly = laptop.Quietly();
  laptop.ui.EndBeforeItsWindows(5000);
  laptop.displays.Changed();  // the UI would be told
  laptop.Advance(10'000);
  EXPECT_FALSE(laptop.ui.Running());
  EXPECT_TRUE(laptop.trace.Contains(L"[Update_UI_Status] ------- End ------- \n"));
  laptop.Advance(6 * kMinuteMs);
  EXPECT_TRUE(laptop.ui.Running());
}

TEST(Watchdog, WaitsOnlyThreeSecondsInAShopWhichItKnowsByAProgramOfExactlyThisName) {
  const Texts others = {L"rovan_watchdog.exe", L"RoVaN_Watchdog.exe.bak", L"My RoVaN_Watchdog.exe"};
  for (const auto& [programs, isListed, relaunches] : {std::tuple(Texts{L"RoVaN_Watchdog.exe"}, true, 1U),
                                                       {Texts{L"RoVaN_Watchdog.exe"}, false, 0U},
                                                       {others, true, 0U}}) {
    WatchedUi laptop;
    for (const auto& program : programs) laptop.processes.Run(L"C:\\Shop\\" + program);
    if (!isListed) laptop.faults.Fail<&os::RunningPrograms>();
    laptop.KillUi();
    laptop.Advance(2900);
    EXPECT_EQ(laptop.Relaunches(), 0U);
    laptop.Advance(1000);
    EXPECT_EQ(laptop.Relaunches(), relaunches) << testing::PrintToString(programs);
  }
}

TEST(Watchdog, ReportsWhatCameOfItAndLaunchesOnlyAUiThatIsWanted) {
  struct Case {
    void (*before)(WatchedUi& laptop);
    std::size_t relaunches = 0;
    Texts usage = {};
  };
  constexpr auto kTool = Laptop::kCheckTool;
  for (const auto& each :
       {Case{.before = [](auto& l) { l.ui.Send(L"DIED"); }},
        {.before = [](auto& l) { l.hotKey.UseF6(2); }},
        {.before = [](auto& l) { l.apps.uiStartMs.reset(); }, .relaunches = 3},
        {.before = [](auto& l) { l.apps.uiStartMs = 2 * kMinuteMs + 500; },
        .relaunches = 3,
        .usage = {L"NOT_EXIST_MAINUI"}},
        {.before = [](auto& l) { l.After(kMinuteMs, [&l] { l.desktop.Open({.className = L"Tessaview"}); }); },
        .usage = {L"UI_EXIST_WITH_CHECKING_TIMES_0"}},
        {.before = [](auto& l) { l.processes[kTool].exitCode = 0; }, .usage = {L"NOT_EXIST_UWP"}},
        {.before = [](auto& l) { l.processes[kTool].neverEnds = true; }, .usage = {L"NOT_EXIST_UWP"}},
        {.before = [](auto& l) { l.processes[kTool].exitCode = 7; }},
        {.before = [](auto& l) { l.sessions.SignOut(); }}}) {
    WatchedUi laptop;
    each.before(laptop);
    laptop.KillUi();
    laptop.Advance(10 * kMinuteMs);
    EXPECT_EQ(laptop.Relaunches(), each.relaunches);
    auto usage = laptop.trace.Usage();
    std::erase(usage, L"TESSAVIEW_F6_TESSAVIEW");
    EXPECT_EQ(usage, each.usage);
    EXPECT_FALSE(laptop.trace.Contains(L" WTSQueryUserToken api GetLastError = 1008 \n")) << "the check is silent";
    EXPECT_EQ(laptop.processes.OpenHandles(), 0U);
  }
}

TEST(Watchdog, GoesByPartsOfTheNameAndTakesOneProcessAfterTheOther) {
  WatchedUi laptop;
  for (const auto* const other : {L"C:\\Windows\\NorvTessaview.exe.bak", L"C:\\Windows\\norvtessaview.exe"})
    laptop.processes.End(laptop.processes.Run(other));
  laptop.Advance(1000);
  EXPECT_FALSE(laptop.trace.Contains(kKilled));
  for (const auto* const part : {L"C:\\Windows\\view.exe", L"C:\\Windows\\Tessaview.exe"})
    laptop.processes.End(laptop.processes.Run(part));
  laptop.Advance(1000);
  EXPECT_EQ(laptop.trace.Count(kKilled), 1U);
  laptop.Advance(5 * kMinuteMs);
  EXPECT_EQ(laptop.trace.Count(kKilled), 2U);
}

TEST(Watchdog, TellsDebuggersWhatCouldNotBeSetUp) {
  LaptopInUse laptop;
  laptop.management.Complete(0x80041032);
  EXPECT_TRUE(ToldDebuggers(laptop, L"Call complete. hResult = 0x80041032\n"));
  laptop.faults.Fail<&os::ConnectToManagement>();
  EXPECT_TRUE(laptop.Boot());
  EXPECT_TRUE(ToldDebuggers(laptop, L"Could not connect. Error code\n"));
}

// One thread after the other cannot be started: only the watchdog's is missed so much that the controller ends.
TEST(Watchdog, WithoutAThreadForItThereIsNoController) {
  std::vector<int> exitCodes;
  for (std::uint32_t started = 0; started < 16; ++started) {
    Laptop laptop;
    laptop.faults.Fail<&os::StartThread>({.times = 1, .after = started});
    laptop.Boot();
    if (!laptop.ExitCode()) continue;
    exitCodes.push_back(*laptop.ExitCode());
    EXPECT_TRUE(laptop.trace.Contains(L"[Failure] There is no thread for \"process stops\" \n"));
  }
  EXPECT_EQ(exitCodes, std::vector{11});
}

}  // namespace

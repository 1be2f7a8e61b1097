// The UI ends, and the watchdog brings it back.

#include "os/process_stops.h"
#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr std::uint32_t kMinuteMs = 60'000;
constexpr auto kUiProgram = L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster\\NorvTessaview.exe";

/// A laptop whose UI runs and has said that it is ready.
class WatchedUi : public RunningLaptop {
 public:
  explicit WatchedUi(sim::LaptopOptions options = {}) : RunningLaptop(Ready(std::move(options))) {
    ui.Send(L"ALIVE");
    Advance(kMinuteMs);
    ForgetTheStory(*this);
    activationsBefore_ = apps.Activations().size();
  }

  /// The UI's process is killed; its windows go with it. Nothing settles: the watchdog takes minutes.
  void KillUi() { processes.End(processes.IdOf(kUiProgram)); }

  [[nodiscard]] std::size_t Relaunches() const { return apps.Activations().size() - activationsBefore_; }

 private:
  static sim::LaptopOptions Ready(sim::LaptopOptions options) {
    options.saved = L"On";
    options.uiRunning = true;
    return options;
  }
  std::size_t activationsBefore_ = 0;
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
  EXPECT_TRUE(LogsInOrder(laptop, {L" ******* NorvTessaview.exe process be killed ******* \n",
                                   L"******* Launch NorvTessaview.exe again , RetryCount = 1 ******* \n",
                                   L"******* isTessaviewPowerOn = true , Launch NorvTessaview.exe ******* \n"}));
}

TEST(Watchdog, WaitsOnlyThreeSecondsInAShop) {
  WatchedUi laptop;
  laptop.processes.Run(L"C:\\Shop\\RoVaN_Watchdog.exe");
  laptop.KillUi();
  laptop.Advance(5000);
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_TRUE(laptop.trace.Contains(
      L"[EndProcess] Is Retail Demo mode and RoVaN_Watchdog.exe exist, after 3 second launch UWP. \n"));
}

TEST(Watchdog, ReportsWhatCameOfItAndLaunchesOnlyAUiThatIsWanted) {
  using Case = std::tuple<const char*, void (*)(WatchedUi&), std::size_t, const wchar_t*>;
  constexpr const wchar_t *kNoPackage = L"NOT_EXIST_UWP", *kNoWindow = L"NOT_EXIST_MAINUI", *kNone = nullptr,
                          *kTwice = L"UI_EXIST_WITH_CHECKING_TIMES_2", *kItself = L"UI_EXIST_WITH_CHECKING_TIMES_0";
  constexpr auto kTool = Laptop::kCheckTool;
  for (const auto& [what, before, relaunches, usage] :
       {Case{"it said that it is going", [](auto& l) { l.ui.Send(L"DIED"); }, 0, kNone},
        {"the panel is off", [](auto& l) { l.hotKey.UseF6(2); }, 0, kNone},
        {"it never shows", [](auto& l) { l.apps.uiStartMs.reset(); }, 3, kNone},
        {"it shows in the second round", [](auto& l) { l.apps.uiStartMs = kMinuteMs + 500; }, 2, kTwice},
        {"it shows in the third round", [](auto& l) { l.apps.uiStartMs = 2 * kMinuteMs + 500; }, 3, kNoWindow},
        {"it comes back by itself",
         [](auto& l) { l.After(kMinuteMs, [&l] { l.desktop.Open({.className = L"Tessaview"}); }); }, 0, kItself},
        {"its package is gone", [](auto& l) { l.processes[kTool].exitCode = 0; }, 0, kNoPackage},
        {"the check takes too long", [](auto& l) { l.processes[kTool].neverEnds = true; }, 0, kNoPackage},
        {"the check fails", [](auto& l) { l.processes[kTool].exitCode = 7; }, 0, kNone},
        {"nobody is signed in", [](auto& l) { l.sessions.SignOut(); }, 0, kNone}}) {
    SCOPED_TRACE(what);
    WatchedUi laptop;
    before(laptop);
    ForgetTheStory(laptop);
    laptop.KillUi();
    laptop.Advance(10 * kMinuteMs);
    EXPECT_EQ(laptop.Relaunches(), relaunches);
    EXPECT_EQ(laptop.trace.Usage(), usage == nullptr ? Texts{} : Texts{usage});
    EXPECT_FALSE(laptop.trace.Contains(L" WTSQueryUserToken api GetLastError = 1008 \n")) << "the check is silent";
    EXPECT_EQ(laptop.processes.OpenHandles(), 0U);
  }
}

TEST(Watchdog, GoesByPartsOfTheNameAndTakesOneProcessAfterTheOther) {
  WatchedUi laptop;
  laptop.processes.End(laptop.processes.Run(L"C:\\Windows\\NorvTessaview.exe.bak"));
  laptop.processes.End(laptop.processes.Run(L"C:\\Windows\\norvtessaview.exe"));
  laptop.Advance(1000);
  EXPECT_FALSE(laptop.trace.Contains(L" ******* NorvTessaview.exe process be killed ******* \n"));
  laptop.processes.End(laptop.processes.Run(L"C:\\Windows\\view.exe"));
  laptop.processes.End(laptop.processes.Run(L"C:\\Windows\\Tessaview.exe"));
  laptop.Advance(1000);
  EXPECT_EQ(laptop.trace.Count(L" ******* NorvTessaview.exe process be killed ******* \n"), 1U);
  EXPECT_EQ(laptop.management.Waiting(), 1U);
  laptop.Advance(5 * kMinuteMs);
  EXPECT_EQ(laptop.trace.Count(L" ******* NorvTessaview.exe process be killed ******* \n"), 2U);
}

TEST(Watchdog, TellsDebuggersWhatCouldNotBeSetUpAndKeepsNobodyAlive) {
  using Case = std::tuple<void (*)(sim::Faults&), const wchar_t*>;
  for (const auto& [spoil, text] :
       {Case{[](auto& f) { f.template Fail<&os::JoinComMultithreaded>(); }, L"Failed to initialize COM library\n"},
        {[](auto& f) { f.template Fail<&os::InitializeComSecurity>(); }, L"Failed to initialize security\n"},
        {[](auto& f) { f.template Fail<&os::CreateManagementLocator>(); }, L"Failed to create IWbemLocator object.\n"},
        {[](auto& f) { f.template Fail<&os::ConnectToManagement>(); }, L"Could not connect. Error code\n"},
        {[](auto& f) { f.template Fail<&os::SubscribeToProcessStops>(); }, L"ExecNotificationQueryAsync failed\n"}}) {
    SCOPED_TRACE(testing::PrintToString(text));
    sim::Laptop laptop;
    spoil(laptop.faults);
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(ToldDebuggers(laptop, text));
    EXPECT_FALSE(laptop.management.IsSubscribed());
    EXPECT_TRUE(laptop.trace.Contains(L"[wWinMain] wmiEndProcess END"));
  }
  WatchedUi laptop;
  EXPECT_EQ(laptop.management.Query(), L"SELECT * FROM Win32_ProcessStopTrace");
  laptop.management.Complete(0x80041032);
  EXPECT_TRUE(ToldDebuggers(laptop, L"Call complete. hResult = 0x80041032\n"));
  laptop.KillUi();
  laptop.Advance(1000);
  laptop.window.PickMenuItem(105);  // Exit
  EXPECT_TRUE(laptop.ExitCode().has_value()) << "in the middle of the watchdog's wait";
}

TEST(Watchdog, WithoutAThreadForItThereIsNoController) {
  sim::Laptop laptop;
  laptop.faults.Fail<&os::StartThread>({.after = 8});
  EXPECT_TRUE(laptop.Boot());
  EXPECT_EQ(laptop.ExitCode(), 11);
}

}  // namespace

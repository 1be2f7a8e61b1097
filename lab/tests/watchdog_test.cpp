// The UI's process ends, for whatever reason.
#include "tests/lab_test.h"

namespace {

using namespace lab;

class Watchdog : public LabTest {
 protected:
  /// The UI runs and has told the controller that it does.
  void StartWithUi() {
    StartController();
    ASSERT_TRUE(laptop.patched.WaitFor(L"process stops are watched"));
    ASSERT_TRUE(laptop.trace.WaitFor(L"[wWinMain] wmiEndProcess END"));
    ASSERT_TRUE(StandInUi::Send(L"ALIVE"));
    ASSERT_TRUE(laptop.trace.WaitFor(L"AppActivationMgr->ActivateApplication Sucessed")) << "the UI is there already";
  }

  void KillUi() {
    killed_ = laptop.uiTalk.Mark();
    laptop.KillUi();
    ASSERT_TRUE(laptop.trace.WaitFor(L" ******* NorvTessaview.exe process be killed *******"));
  }

  [[nodiscard]] bool IsLaunchedAgain() const { return laptop.uiTalk.Contains(L"activated *", killed_); }

 private:
  std::size_t killed_ = 0;
};

TEST_F(Watchdog, AKilledUiIsLaunchedAgainEachTime) {
  StartWithUi();
  for (const int times : {1, 2}) {
    const auto used = laptop.usage.Mark();
    KillUi();
    EXPECT_TRUE(laptop.usage.WaitFor(L"UI_EXIST_WITH_CHECKING_TIMES_*", used)) << times;
    EXPECT_TRUE(IsLaunchedAgain() && StandInUi::IsThere());
    laptop.trace.Clear();
  }
}

TEST_F(Watchdog, AUiThatSaidItIsGoneIsLeftAlone) {
  StartWithUi();
  ASSERT_TRUE(StandInUi::Send(L"DIED"));
  KillUi();
  EXPECT_TRUE(laptop.trace.WaitFor(L"******* Launch NorvTessaview.exe again , RetryCount = 3 *******"));
  EXPECT_FALSE(IsLaunchedAgain());
}

TEST_F(Watchdog, WithoutItsPackageThereIsNothingToLaunch) {
  StartWithUi();
  state.packageCheck = kPackageMissing;
  KillUi();
  EXPECT_TRUE(laptop.usage.WaitFor(L"NOT_EXIST_UWP"));
  EXPECT_FALSE(IsLaunchedAgain());
  EXPECT_FALSE(laptop.trace.Contains(L"******* Launch NorvTessaview.exe again*"));
}

}  // namespace

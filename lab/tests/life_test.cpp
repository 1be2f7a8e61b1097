// When the UI is launched beyond the day, and when it is not.
#include "kit/system_events.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Life = LabTest;

TEST_F(Life, AUiThatIsThereAlreadyIsNotLaunchedAgain) {
  for (const auto* window : {kUiClass, kUiGuideClass, kUiVideoClass}) {
    SCOPED_TRACE(std::string(window, window + wcslen(window)));
    ASSERT_TRUE(laptop.ui.Start(window) && laptop.controller.Start() && laptop.WaitForController());
    EXPECT_TRUE(laptop.trace.Contains(L" Found Package"));
    EXPECT_FALSE(laptop.trace.Contains(L" Launch UWP"));
    ASSERT_TRUE(laptop.Renew());
  }
}

TEST_F(Life, TheUiIsLaunchedWhenSetupEndsLate) {
  state.setupOver = 0;
  ASSERT_TRUE(laptop.controller.Start() && laptop.WaitForController());
  EXPECT_TRUE(laptop.trace.Contains(L"isOOBEComplete = 0"));
  EXPECT_FALSE(laptop.uiTalk.Contains(L"activated *"));
  state.setupOver = 1;
  Happen(SystemEvent::SetupFinished);
  EXPECT_TRUE(Used(L"UI_EXIST_WITH_CHECKING_TIMES_1"));
  EXPECT_TRUE(StandInUi::IsThere());
}

class Watchdog : public LabTest {
 protected:
  /// The UI's process ends, after the UI has told the controller that it runs, and this.
  void KillUiAfter(const std::wstring& command) {
    StartController();
    ASSERT_TRUE(Patched(L"process stops are watched") && Traced(L"[wWinMain] wmiEndProcess END"));
    ASSERT_TRUE(StandInUi::Send(L"ALIVE"));
    ASSERT_TRUE(Traced(L"AppActivationMgr->ActivateApplication Sucessed")) << "the UI is there already";
    ASSERT_TRUE(StandInUi::Send(command));
    Happens(L"the UI is killed");
    laptop.KillUi();
    ASSERT_TRUE(Traced(L" ******* NorvTessaview.exe process be killed *******"));
  }

  [[nodiscard]] bool IsLaunchedAgain() const { return !UiTalk().empty(); }
};

TEST_F(Watchdog, AUiThatSaidItIsGoneIsLeftAlone) {
  KillUiAfter(L"DIED");
  EXPECT_TRUE(Traced(L"******* Launch NorvTessaview.exe again , RetryCount = 3 *******"));
  EXPECT_FALSE(IsLaunchedAgain());
}

TEST_F(Watchdog, WithoutItsPackageThereIsNothingToLaunch) {
  state.packageCheck = kPackageMissing;
  KillUiAfter(L"BLGET");
  EXPECT_TRUE(Used(L"NOT_EXIST_UWP"));
  EXPECT_FALSE(IsLaunchedAgain());
  EXPECT_FALSE(laptop.trace.Contains(L"******* Launch NorvTessaview.exe again*"));
}

}  // namespace

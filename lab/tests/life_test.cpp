// When the UI is launched beyond the day, and when it is not.
#include <windows.h>

#include <sddl.h>

#include <algorithm>

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

TEST_F(Life, AnInstanceOfSomebodyElseIsOneToo) {
  SECURITY_ATTRIBUTES system{sizeof system, nullptr, FALSE};
  ConvertStringSecurityDescriptorToSecurityDescriptorW(L"O:SYG:SYD:P(A;;GA;;;SY)", SDDL_REVISION_1,
                                                       &system.lpSecurityDescriptor, nullptr);
  const HANDLE mutex = CreateMutexW(&system, FALSE, L"Mutex_TessaviewService");
  EXPECT_TRUE(laptop.controller.Start() && laptop.controller.WaitForExit() == 0U);
  EXPECT_TRUE(laptop.trace.Contains(L"[Instance] The mutex cannot be opened, error = 5"));
  CloseHandle(mutex);
  LocalFree(system.lpSecurityDescriptor);
}

class Watchdog : public LabTest {
 protected:
  /// The UI tells the controller that it is ready.
  void SayAlive() {
    Happens(L"the UI says that it is ready");
    ASSERT_TRUE(StandInUi::Send(L"ALIVE"));
    ASSERT_TRUE(Traced(L"AppActivationMgr->ActivateApplication Sucessed")) << "the UI is there already";
  }

  void KillUi() {
    Happens(L"the UI is killed");
    laptop.KillUi();
    ASSERT_TRUE(Traced(L" ******* NorvTessaview.exe process be killed *******"));
  }

  [[nodiscard]] bool IsLaunchedAgain() const {
    const auto talk = UiTalk();
    return std::any_of(talk.begin(), talk.end(), [](const auto& line) { return line.starts_with(L"activated"); });
  }
};

TEST_F(Watchdog, AUiThatSaidItIsGoneIsLeftAloneUntilItIsReadyAgain) {
  StartController();
  SayAlive();
  ASSERT_TRUE(StandInUi::Send(L"DIED"));
  KillUi();
  EXPECT_TRUE(Traced(L"******* Launch NorvTessaview.exe again , RetryCount = 3 *******"));
  EXPECT_FALSE(IsLaunchedAgain());
  ASSERT_TRUE(laptop.ui.Start());
  SayAlive();
  KillUi();
  EXPECT_TRUE(UiIsLaunched() && Used(L"UI_EXIST_WITH_CHECKING_TIMES_*") && StandInUi::IsThere());
}

TEST_F(Watchdog, WithoutItsPackageThereIsNothingToLaunch) {
  StartController();
  SayAlive();
  state.packageCheck = kPackageMissing;
  KillUi();
  EXPECT_TRUE(Used(L"NOT_EXIST_UWP"));
  EXPECT_FALSE(IsLaunchedAgain());
  EXPECT_FALSE(laptop.trace.Contains(L"******* Launch NorvTessaview.exe again*"));
}

}  // namespace

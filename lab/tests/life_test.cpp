// What comes late, and who is there already.
#include <windows.h>

#include <sddl.h>

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

}  // namespace

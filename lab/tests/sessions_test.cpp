// What happens around the user's session: setup, packages, the secure desktop, waking up.
#include "kit/system_events.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Sessions = LabTest;

TEST_F(Sessions, TheUiIsLaunchedWhenSetupEndsLate) {
  state.setupOver = 0;
  ASSERT_TRUE(laptop.controller.Start() && laptop.WaitForController());
  EXPECT_TRUE(laptop.trace.Contains(L"isOOBEComplete = 0"));
  EXPECT_FALSE(laptop.uiTalk.Contains(L"activated *"));
  state.setupOver = 1;
  Happen(SystemEvent::SetupFinished);
  EXPECT_TRUE(laptop.usage.WaitFor(L"UI_EXIST_WITH_CHECKING_TIMES_1"));
  EXPECT_TRUE(StandInUi::IsThere());
}

TEST_F(Sessions, ANewPackageBringsTheUiUpUnlessItIsThere) {
  StartController();
  const auto changed = L"[PackageWatch] The installed packages changed";
  ASSERT_TRUE(ListPackage(L"Another_1.0"));
  ASSERT_TRUE(laptop.trace.WaitFor(changed));
  const auto mark = laptop.trace.Mark();
  laptop.ui.End();
  ASSERT_TRUE(ListPackage(L"Another_1.1"));
  ASSERT_TRUE(laptop.trace.WaitFor(changed, mark));
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"activated *"));
  EXPECT_TRUE(Eventually([] { return StandInUi::IsThere(); }));
}

TEST_F(Sessions, TheUiIsToldOfTheSecureDesktopOnceEachTime) {
  StartController();
  for (const bool isSecure : {true, false, true}) {
    const auto told = laptop.uiTalk.Mark();
    const std::wstring text = isSecure ? L"UACENTRY" : L"UACEXIT";
    SwitchToSecureDesktop(isSecure);
    EXPECT_TRUE(UiIsTold(text, told));
    SwitchToSecureDesktop(isSecure);
    ASSERT_TRUE(SendCommand(L"BLGET") && UiIsTold(L"BLSET*", told));
    EXPECT_EQ(laptop.uiTalk.Since(told).size(), 2U);
  }
}

TEST_F(Sessions, BackFromHibernationTheTouchDevicesAreResetAndTheUiTold) {
  StartController();
  ASSERT_TRUE(laptop.patched.Contains(L"log System is watched for **"));
  for (int times = 0; times < 2; times++) {
    const auto traced = laptop.trace.Mark(), told = laptop.uiTalk.Mark();
    Happen(SystemEvent::Resumed);
    EXPECT_TRUE(UiIsTold(L"IAMBACK", told));
    EXPECT_TRUE(laptop.trace.Contains(L"[Resume] Back from hibernation", traced));
    EXPECT_TRUE(laptop.trace.Contains(L"Dissable Device Success", traced));
    EXPECT_TRUE(laptop.trace.Contains(L"Enable Device Success", traced));
  }
}

}  // namespace

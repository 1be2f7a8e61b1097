// How the controller comes and goes, and how it brings the UI up.
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Life = LabTest;

TEST_F(Life, TheUiIsLaunchedOnceItsPackageIsThere) {
  state.packageCheck = kPackageMissing;
  ASSERT_TRUE(laptop.controller.Start());
  ASSERT_TRUE(laptop.trace.WaitFor(L" No Found Package"));
  const auto once = laptop.trace.Mark();
  ASSERT_TRUE(laptop.trace.WaitFor(L" No Found Package", once)) << "it is asked for again";
  state.packageCheck = ERROR_ACCESS_DENIED;
  ASSERT_TRUE(laptop.trace.WaitFor(L" PackageCheck Fail , ExitCode = -2147024891")) << "as an HRESULT: it is no answer";
  EXPECT_FALSE(laptop.uiTalk.Contains(L"activated *"));
  state.packageCheck = kPackageInstalled;
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_TRUE(laptop.uiTalk.Contains(L"activated 7C31A0D4.TessaviewMaster_*"));
  EXPECT_TRUE(StandInUi::IsThere());
  EXPECT_TRUE(laptop.usage.WaitFor(L"UI_EXIST_WITH_CHECKING_TIMES_1"));
}

TEST_F(Life, AUiThatIsThereAlreadyIsNotLaunchedAgain) {
  for (const auto* window : {kUiClass, kUiGuideClass, kUiVideoClass}) {
    SCOPED_TRACE(std::string(window, window + wcslen(window)));
    ASSERT_TRUE(laptop.ui.Start(window) && laptop.controller.Start() && laptop.WaitForController());
    EXPECT_TRUE(laptop.trace.Contains(L" Found Package"));
    EXPECT_FALSE(laptop.trace.Contains(L" Launch UWP"));
    ASSERT_TRUE(laptop.Renew());
  }
}

TEST_F(Life, ASecondInstanceLeavesAtOnceAndTouchesNothing) {
  StartController();
  const auto asked = laptop.requests.Mark(), told = laptop.uiTalk.Mark();
  Controller second;
  ASSERT_TRUE(second.Start());
  EXPECT_EQ(second.WaitForExit(), 0u);
  EXPECT_TRUE(laptop.controller.IsRunning());
  ASSERT_TRUE(SendCommand(L"BLGET")) << "the first one serves on";
  EXPECT_TRUE(UiIsTold(L"BLSET 45", told));
  ASSERT_TRUE(laptop.WaitForController());
  for (const auto& request : laptop.requests.Since(asked)) EXPECT_EQ(request.rfind(L"DSTS", 0), 0u);
}

TEST_F(Life, EndsWhenItsMenuSaysSo) {
  StartController();
  Controller::Exit();
  EXPECT_EQ(laptop.controller.WaitForExit(), 0u);
  EXPECT_EQ(Controller::Window(), nullptr);
  EXPECT_TRUE(StandInUi::IsThere()) << "the UI is its own program";
}

TEST_F(Life, TheEndOfTheSessionLeavesAPlainTouchPad) {
  StartController();
  const auto reported = laptop.reports.Mark();
  ASSERT_TRUE(Deliver(Controller::Window(), WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF)));
  EXPECT_TRUE(laptop.reports.WaitFor(kCursorReport, reported));
}

}  // namespace

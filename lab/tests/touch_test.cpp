// The touch controller: raw touch reports on their way to the UI, and a touch pad that comes late.
#include "tests/lab_test.h"

namespace {

using namespace lab;

using Touch = LabTest;

/// One contact, told apart by its id: report id, tip switch, contact id, X, Y, contact count.
TouchBytes Contact(std::uint8_t reportId, bool down, std::uint8_t contact) {
  return {reportId, static_cast<std::uint8_t>(down ? 1 : 0), contact, 0x34, 0x02, 0x78, 0x05, 1};
}

TEST_F(Touch, RawReportsReachTheUiThinnedToEveryThirdAndTheLift) {
  StartController();
  constexpr std::uint8_t kPadReport = 1, kScreenReport = 4;
  const auto told = laptop.uiTalk.Mark();
  for (std::uint8_t contact = 0; contact < 5; contact++) {
    ASSERT_TRUE(laptop.touch.Report(kTouchPad, Contact(kPadReport, true, contact)));
  }
  ASSERT_TRUE(laptop.touch.Report(kTouchPad, Contact(kPadReport, false, 5)));
  EXPECT_TRUE(UiIsTold(L"touch 01 00 05*", told));
  for (std::uint8_t contact = 6; contact < 10; contact++) {
    ASSERT_TRUE(laptop.touch.Report(kTouchScreen, Contact(kScreenReport, true, contact)));
  }
  EXPECT_TRUE(UiIsTold(L"touch 04 01 09*", told));
  const std::vector<std::wstring> forwarded{
      L"received touch 01 01 00 34 02 78 05 01", L"received touch 01 01 03 34 02 78 05 01",
      L"received touch 01 00 05 34 02 78 05 01", L"received touch 04 01 06 34 02 78 05 01",
      L"received touch 04 01 09 34 02 78 05 01"};
  EXPECT_EQ(laptop.uiTalk.Since(told), forwarded);
}

TEST_F(Touch, AControllerThatIsPluggedInLateIsFoundAllTheSame) {
  ASSERT_TRUE(laptop.touch.Unplug(kTouchPad));
  ASSERT_TRUE(laptop.controller.Start());
  ASSERT_TRUE(Eventually([] { return Controller::Window() != nullptr; }));
  ASSERT_TRUE(laptop.trace.WaitFor(L"Dissable Device*"));
  EXPECT_FALSE(laptop.trace.Contains(L"Find TouchPad Vid & Pid Success!"));
  ASSERT_TRUE(laptop.touch.Plug(kTouchPad));
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_TRUE(laptop.trace.Contains(L"Find TouchPad Vid & Pid Success!"));
  const auto reported = laptop.reports.Mark();
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(laptop.reports.WaitFor(kCursorReport, reported));
}

}  // namespace

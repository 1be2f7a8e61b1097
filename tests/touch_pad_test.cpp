// Finding the C panel's touch pad among the HID collections, and switching it to cursor mode.

#include "touch/touch_pad.h"

#include "tests/support.h"

namespace {

using namespace support;
using os::HidInterface;

TEST(TouchPadSearch, FindsThePadByItsUsageAndThenOpensTheCollectionThatTakesItsMode) {
  sim::Laptop laptop;
  EXPECT_TRUE(tessaview::FindTouchPadHid());
  EXPECT_EQ(laptop.touch.OpenHandles(), 0U) << "known, and not yet open for writing";
  EXPECT_TRUE(LogsInOrder(laptop, {L"hHidOut = NULL\n",  // the mouse is the system's own
                                   L"Hid Device Number 3 : Vid:0x4758 Pid:0x1515\n", L"Usage = 5, UsagePage = 13\n",
                                   L"pInputValueCaps '2' ReportID = 17, YLogicalMax = 1030, YLogicalMin = 0\n"}));

  laptop.trace.Clear();
  EXPECT_TRUE(tessaview::FindTouchPadHid());
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  EXPECT_TRUE(LogsInOrder(laptop, {L"Device is not target device\n", L"Usage = 1, UsagePage = 65280\n"}));
  for (int again = 0; again < 3; ++again) EXPECT_TRUE(tessaview::SearchTouchPadAgain());
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U) << "the pad is opened once";
}

TEST(TouchPadSearch, GoesOnBehindACollectionItCannotUse) {
  using Case = std::tuple<const wchar_t*, void (*)(sim::HidCollection&)>;
  for (const auto& [line, spoil] :
       {Case{L"hHidOut = NULL\n", [](sim::HidCollection& c) { c.exclusive = true; }},
        {L"HidD_GetAttributes failed\n", [](sim::HidCollection& c) { c.attributesReadable = false; }},
        {L"Get PreparsedData failed!\n", [](sim::HidCollection& c) { c.hasPreparsedData = false; }},
        {L"ERROR : SetupDiGetDeviceInterfaceDetail fial, can not get detail data.\n",
         [](sim::HidCollection& c) { c.detail = HidInterface::Detail::NoData; }}}) {
    SCOPED_TRACE(testing::PrintToString(line));
    sim::Laptop laptop;
    laptop.touch.mouse().exclusive = false;
    spoil(laptop.touch.mouse());        // in the way of the first phase
    spoil(laptop.touch.touchScreen());  // and, being of the controller, of the second
    EXPECT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_TRUE(laptop.trace.Contains(line));
    EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  }
}

TEST(TouchPadSearch, DoesNotConnectWhatIsNotTheWholePad) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&)>;
  for (const auto& [story, arrange] :
       {Case{"no controller", [](sim::Laptop& l) { l.touch.Unplug(); }},
        {"no collection takes report 3", [](sim::Laptop& l) { l.touch.modeSwitch().outputValues[0].reportId = 4; }},
        {"the one that does cannot be opened", [](sim::Laptop& l) { l.touch.modeSwitch().exclusive = true; }},
        {"only another maker's takes it", [](sim::Laptop& l) { l.touch.modeSwitch().attributes.vendorId = 0x1A7C; }},
        {"only another model's takes it", [](sim::Laptop& l) { l.touch.modeSwitch().attributes.productId = 0x1516; }},
        {"the pad is a touch screen", [](sim::Laptop& l) { l.touch.touchPad().capabilities.usage = 4; }},
        {"no HID class", [](sim::Laptop& l) { l.faults.Fail<&os::HidInterfaces>({.times = 1}); }},
        {"the list is short", [](sim::Laptop& l) { l.faults.Short<&os::HidInterfaces>(4); }}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    arrange(laptop);
    EXPECT_FALSE(tessaview::SearchTouchPadAgain());  // the step that opens the pad has nothing to go by
    EXPECT_FALSE(tessaview::SetModetoTouchPad());
    EXPECT_TRUE(laptop.touch.OutputReports().empty());
    EXPECT_EQ(laptop.touch.OpenHandles(), 0U);
  }
}

TEST(CursorMode, IsAReportOfThePadsOwnLength) {
  const os::Bytes full = {0x03, 0x00, 0x09, 0xA1, 0x00, 0x00, 0x0F, 0x00, 0x00, 0x00, 0x08, 0x70};
  for (const std::uint16_t length : std::initializer_list<std::uint16_t>{64, 12, 5, 1}) {
    sim::Laptop laptop;
    laptop.touch.modeSwitch().capabilities.outputReportLength = length;
    ASSERT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_TRUE(tessaview::SetModetoTouchPad());
    auto report = full;
    report.resize(length);
    EXPECT_EQ(laptop.touch.OutputReports(), std::vector<os::Bytes>{report});
  }
}

TEST(CursorMode, IsRefusedWithoutAPad) {
  sim::Laptop laptop;
  EXPECT_FALSE(tessaview::SetModetoTouchPad());
  ASSERT_TRUE(tessaview::SearchTouchPadAgain());
  laptop.faults.Fail<&os::WriteHidReport>({.times = 1});
  EXPECT_FALSE(tessaview::SetModetoTouchPad());
  EXPECT_TRUE(tessaview::SetModetoTouchPad());
  laptop.touch.Unplug();
  EXPECT_FALSE(tessaview::SetModetoTouchPad()) << "the pad is gone, the handle is still open";
}

}  // namespace

// Finding the C panel's touch pad among the HID collections, and switching it to cursor mode.

#include "touch/touch_pad.h"

#include <gtest/gtest.h>

#include "sim/laptop.h"
#include "tests/support.h"
#include "touch/touch_pad_state.h"

namespace {

using os::HidInterface;
using support::LogsInOrder;

constexpr std::uint16_t kDesktopPage = 0x01, kDigitizerPage = 0x0D, kX = 0x30, kY = 0x31;

// ---- The search ----

TEST(TouchPadSearch, FindsThePadByItsUsageAndThenOpensTheCollectionThatTakesItsMode) {
  sim::Laptop laptop;
  EXPECT_TRUE(tessaview::FindTouchPadHid());
  EXPECT_EQ(laptop.touch.OpenHandles(), 0U) << "known, and not yet open for writing";
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"hHidOut = NULL\n",  // the mouse is the system's own
               L"Hid Device Number 1 : Vid:0x1a7c Pid:0x44\n", L"Hid Device Number 2 : Vid:0x4758 Pid:0x1515\n",
               L"Hid Device Number 3 : Vid:0x4758 Pid:0x1515\n", L"Usage = 5, UsagePage = 13\n",
               L"pInputValueCaps '1' ReportID = 17, XLogicalMax = 3840, XLogicalMin = 0\n",
               L"pInputValueCaps '2' ReportID = 17, YLogicalMax = 1030, YLogicalMin = 0\n",
               L"Find TouchPad Vid & Pid Success!\n"}));

  laptop.trace.Clear();
  EXPECT_TRUE(tessaview::FindTouchPadHid());
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  EXPECT_TRUE(
      LogsInOrder(laptop, {L"Device is not target device\n", L"Hid Device Number 4 : Vid:0x4758 Pid:0x1515\n",
                           L"Usage = 1, UsagePage = 65280\n",
                           L"InputReportByteLength = 64, OutputReportByteLength = 64, FeatureReportByteLength = 0\n",
                           L"NumberInputValueCaps = 0, NumberOutputValueCaps = 1, NumberFeatureValueCaps = 0\n"}));

  for (int again = 0; again < 3; ++again) EXPECT_TRUE(tessaview::SearchTouchPadAgain());
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U) << "the pad is opened once";
}

TEST(TouchPadSearch, TakesTheFirstRangesThatAreThere) {
  struct Case {
    const char* story;
    std::vector<os::HidValue> values;
    std::int32_t x, y;
  };
  const Case cases[] = {
      {"as built", {{kDesktopPage, kX, 17, 0, 3840}, {kDesktopPage, kY, 17, 0, 1030}}, 3840, 1030},
      {"a second finger changes nothing",
       {{kDesktopPage, kX, 17, 0, 100}, {kDesktopPage, kY, 17, 0, 50}, {kDesktopPage, kX, 17, 0, 999}},
       100,
       50},
      {"the page counts", {{kDigitizerPage, kX, 17, 0, 7}, {kDesktopPage, kY, 17, 0, 50}}, 0, 50},
      {"no ranges at all", {}, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop;
    laptop.touch.touchPad().inputValues = c.values;
    EXPECT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_EQ(tessaview::gTouchPad.get().xLogicalMax, c.x);
    EXPECT_EQ(tessaview::gTouchPad.get().yLogicalMax, c.y);
  }
}

TEST(TouchPadSearch, GoesOnBehindACollectionItCannotUse) {
  struct Case {
    const wchar_t* line;
    void (*spoil)(sim::HidCollection&);
  };
  const Case cases[] = {
      {L"hHidOut = NULL\n", [](sim::HidCollection& c) { c.exclusive = true; }},
      {L"HidD_GetAttributes failed\n", [](sim::HidCollection& c) { c.attributesReadable = false; }},
      {L"Get PreparsedData failed!\n", [](sim::HidCollection& c) { c.hasPreparsedData = false; }},
      {L"ERROR : SetupDiGetDeviceInterfaceDetail fial, dwSize has no size.\n",
       [](sim::HidCollection& c) { c.detail = HidInterface::Detail::NoSize; }},
      {L"ERROR : SetupDiGetDeviceInterfaceDetail fial, can not get detail data.\n",
       [](sim::HidCollection& c) { c.detail = HidInterface::Detail::NoData; }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.line));
    sim::Laptop laptop;
    laptop.touch.mouse().exclusive = false;
    c.spoil(laptop.touch.mouse());        // in the way of the first phase
    c.spoil(laptop.touch.touchScreen());  // and, being of the controller, of the second
    EXPECT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_TRUE(laptop.trace.Contains(c.line));
    EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  }
}

TEST(TouchPadSearch, DoesNotConnectWhatIsNotTheWholePad) {
  struct Case {
    const char* story;
    void (*arrange)(sim::Laptop&);
  };
  const Case cases[] = {
      {"no controller", [](sim::Laptop& l) { l.touch.Unplug(); }},
      {"no collection takes report 3", [](sim::Laptop& l) { l.touch.modeSwitch().outputValues[0].reportId = 4; }},
      {"the one that does cannot be opened", [](sim::Laptop& l) { l.touch.modeSwitch().exclusive = true; }},
      {"the one that does has no data", [](sim::Laptop& l) { l.touch.modeSwitch().hasPreparsedData = false; }},
      {"only another maker's takes it", [](sim::Laptop& l) { l.touch.modeSwitch().attributes.vendorId = 0x1A7C; }},
      {"only another model's takes it", [](sim::Laptop& l) { l.touch.modeSwitch().attributes.productId = 0x1516; }},
      {"the pad is a touch screen", [](sim::Laptop& l) { l.touch.touchPad().capabilities.usage = 4; }},
      {"the pad is on another page", [](sim::Laptop& l) { l.touch.touchPad().capabilities.usagePage = 0x01; }},
      {"the list is short", [](sim::Laptop& l) { l.faults.Short<&os::HidInterfaces>(4); }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    sim::Laptop laptop;
    c.arrange(laptop);
    EXPECT_FALSE(tessaview::SearchTouchPadAgain());
    EXPECT_FALSE(tessaview::SetModetoTouchPad());
    EXPECT_TRUE(laptop.touch.OutputReports().empty());
    EXPECT_EQ(laptop.touch.OpenHandles(), 0U);
  }
}

TEST(TouchPadSearch, SaysWhenThereIsNoHidClassAndFindsThePadNextTime) {
  sim::Laptop laptop;
  laptop.faults.Fail<&os::HidInterfaces>({.times = 1});
  EXPECT_FALSE(tessaview::SearchTouchPadAgain()) << "the step that opens the pad had nothing to go by";
  EXPECT_TRUE(laptop.trace.Contains(L"ERROR : Unable to enumerate HID device.\n"));
  EXPECT_TRUE(tessaview::SearchTouchPadAgain());
}

// ---- The mode report ----

TEST(CursorMode, IsAReportOfThePadsOwnLength) {
  const os::Bytes full = {0x03, 0x00, 0x09, 0xA1, 0x00, 0x00, 0x0F, 0x00, 0x00, 0x00, 0x08, 0x70};
  for (const std::uint16_t length : std::initializer_list<std::uint16_t>{64, 13, 12, 5, 1}) {
    SCOPED_TRACE(length);
    sim::Laptop laptop;
    laptop.touch.modeSwitch().capabilities.outputReportLength = length;
    ASSERT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_TRUE(tessaview::SetModetoTouchPad());

    ASSERT_EQ(laptop.touch.OutputReports().size(), 1U);
    auto report = laptop.touch.OutputReports()[0];
    EXPECT_EQ(report.size(), length);
    auto expected = full;
    if (length < expected.size()) expected.resize(length);
    report.resize(expected.size());
    EXPECT_EQ(report, expected);
  }
}

TEST(CursorMode, IsRefusedWithoutAPad) {
  sim::Laptop laptop;
  EXPECT_FALSE(tessaview::SetModetoTouchPad());
  EXPECT_EQ(laptop.trace.DebugTexts(), std::vector<std::wstring>{L"Connect failed! SetModetoTouchPad failed.\n"});

  ASSERT_TRUE(tessaview::SearchTouchPadAgain());
  laptop.faults.Fail<&os::WriteHidReport>({.times = 1});
  EXPECT_FALSE(tessaview::SetModetoTouchPad());
  EXPECT_TRUE(tessaview::SetModetoTouchPad());
  laptop.touch.Unplug();
  EXPECT_FALSE(tessaview::SetModetoTouchPad()) << "the pad is gone, the handle is still open";
}

}  // namespace

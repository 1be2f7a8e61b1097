// Finding the C panel's touch pad among the HID collections, and switching it to cursor mode.

#include "touch/touch_pad.h"

#include "tests/support.h"

namespace {

using namespace support;
using os::HidInterface;

TEST(TouchPadSearch, FindsThePadByItsUsageAndThenOpensTheCollectionThatTakesItsMode) {
  Laptop laptop;
  EXPECT_TRUE(tessaview::FindTouchPadHid());
  EXPECT_EQ(laptop.touch.OpenHandles(), 0U) << "known, and not yet open for writing";
  for (int again = 0; again < 3; ++again) EXPECT_TRUE(tessaview::SearchTouchPadAgain());
  EXPECT_EQ(laptop.touch.OpenHandles(), 1U) << "the pad is opened once";
}

TEST(TouchPadSearch, GoesOnBehindACollectionItCannotUse) {
  for (const auto spoil : {+[](sim::HidCollection& c) { c.hasPreparsedData = false; },
                           +[](sim::HidCollection& c) { c.detail = HidInterface::Detail::NoData; },
                           +[](sim::HidCollection& c) { c.capabilities.usage = 5; }}) {  // on its page a game pad
    Laptop laptop;
    laptop.touch.mouse().exclusive = false;
    spoil(laptop.touch.mouse());        // in the way of the first phase
    spoil(laptop.touch.touchScreen());  // and, being of the controller, of the second
    EXPECT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_EQ(laptop.touch.OpenHandles(), 1U);
  }
}

TEST(TouchPadSearch, DoesNotConnectWhatIsNotTheWholePad) {
  for (const auto arrange :
       {+[](Laptop& l) { l.touch.Unplug(); }, +[](Laptop& l) { l.touch.modeSwitch().outputValues[0].reportId = 4; },
        +[](Laptop& l) { l.touch.modeSwitch().attributes.vendorId = 0x1A7C; },
        +[](Laptop& l) { l.touch.modeSwitch().attributes.productId = 0x1516; },
        +[](Laptop& l) { l.touch.touchPad().capabilities.usage = 4; },
        +[](Laptop& l) { l.faults.Fail<&os::HidInterfaces>({.times = 1}); }}) {
    Laptop laptop;
    arrange(laptop);
    EXPECT_FALSE(tessaview::SearchTouchPadAgain());  // the step that opens the pad has nothing to go by
    EXPECT_FALSE(tessaview::SetModetoTouchPad());
    EXPECT_TRUE(laptop.touch.OutputReports().empty());
    EXPECT_EQ(laptop.touch.OpenHandles(), 0U);
  }
}

TEST(CursorMode, IsAReportOfThePadsOwnLength) {
  const Bytes full = {0x03, 0x00, 0x09, 0xA1, 0x00, 0x00, 0x0F, 0x00, 0x00, 0x00, 0x08, 0x70};
  for (const std::uint16_t length : std::initializer_list<std::uint16_t>{64, 12, 5, 1}) {
    Laptop laptop;
    laptop.touch.modeSwitch().capabilities.outputReportLength = length;
    ASSERT_TRUE(tessaview::SearchTouchPadAgain());
    EXPECT_TRUE(tessaview::SetModetoTouchPad());
    auto report = full;
    report.resize(length);
    EXPECT_EQ(laptop.touch.OutputReports(), std::vector<Bytes>{report});
    laptop.touch.modeSwitch().takesReportMs = sim::kNever;
    EXPECT_FALSE(tessaview::SetModetoTouchPad()) << "given up";
  }
}

}  // namespace

// Touch reports on their way to the UI.

#include "tests/support.h"
#include "touch/raw_input.h"

namespace {

using namespace support;
using Reports = std::vector<Bytes>;

class TouchForwarding : public testing::Test {
 protected:
  /// What the UI got of these reports of one device.
  Reports Forwarded(const sim::HidCollection& device, const Reports& reports) {
    for (const auto& report : reports) laptop.touch.ReportFrom(device, report);
    auto received = laptop.ui.ReceivedReports();
    laptop.ui.ForgetReceived();
    return received;
  }

  RunningLaptop laptop{{.uiRunning = true}};
  sim::HidCollection& screen = laptop.touch.touchScreen();
  sim::HidCollection& pad = laptop.touch.touchPad();
};

TEST_F(TouchForwarding, SendsTheReportAsItCameToTheMainWindow) {
  const Bytes report = {1, 1, 0x80, 0x07, 0xFF, 0x00};
  laptop.ui.OpenGuide();
  laptop.touch.Deliver(screen, report, {.sizeMatches = false, .type = 2});  // that is only noted
  EXPECT_EQ(laptop.ui.ReceivedReports(), Reports{report});
  ASSERT_EQ(laptop.ui.ReceivedRecords().size(), 1U);
  EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 101U);
  EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, L"Tessaview");
}

// Byte 0 is the report's id, byte 1 its flags, byte 2 numbers it.
TEST_F(TouchForwarding, ThinsAContactToEveryThirdReportAndTheLift) {
  EXPECT_EQ(Forwarded(screen, {{1, 1, 1}, {1, 1, 2}, {1, 1, 3}, {1, 1, 4}, {1, 0, 5}, {1, 1, 6}, {1, 1, 7}, {1, 0, 8}}),
            (Reports{{1, 1, 1}, {1, 1, 4}, {1, 0, 5}, {1, 1, 6}, {1, 0, 8}}))
      << "every contact begins anew";
  EXPECT_EQ(Forwarded(screen, {{1, 0, 1}, {1, 0xFE, 2}}).size(), 2U) << "lifts one after the other";
  laptop.touch.Deliver(screen, {1, 1, 1, 1, 1, 2, 1, 1, 3, 1, 1, 4, 1, 0, 5}, {.type = 2, .reportSize = 3});
  EXPECT_EQ(Forwarded(screen, {}), (Reports{{1, 1, 1}, {1, 1, 4}, {1, 0, 5}})) << "five of them in one record";
  EXPECT_EQ(Forwarded(pad, {{17, 2, 1}, {17, 3, 2}, {17, 2, 3}, {17, 2, 4}, {17, 1, 5}}),
            (Reports{{17, 2, 1}, {17, 2, 4}, {17, 1, 5}}))
      << "the pad's finger is bit 1";
  EXPECT_EQ(Forwarded(pad, {{5, 0, 1}, {5, 0, 2}, {5, 0, 3}, {1}, {17, 0, 5}}), (Reports{{5, 0, 1}, {1}, {17, 0, 5}}))
      << "a report of another kind, or without flags, is no lift and counts all the same";
}

TEST_F(TouchForwarding, IgnoresWhateverIsNotATouchOfTheCPanel) {
  using Change = void (*)(sim::HidCollection&);
  for (int number = 0;
       const auto change : {Change{[](auto& c) { c.attributes.vendorId = 0x1A7C; }},
                            Change{[](auto& c) { c.attributes.productId = 0x1516; }},
                            Change{[](auto& c) { c.capabilities.usagePage = 1; }}}) {  // there a game pad
    auto foreign = sim::MakeTouchPad();
    foreign.path += std::to_wstring(++number);
    change(foreign);
    laptop.touch.ReportFrom(laptop.touch.Add(foreign), {17, 0, 1});
    EXPECT_TRUE(tessaview::RegisterCPanelRawInput());
    EXPECT_EQ(tessaview::gRawTouchPad(), pad.raw);
  }
  constexpr std::uint32_t kMouse = 0, kKeyboard = 1;
  laptop.touch.ReportFrom(sim::MakeTouchScreen(), {1, 0, 2});  // without a handle, as some drivers do
  for (const auto type : {kMouse, kKeyboard}) laptop.touch.Deliver(screen, {1, 0, 3}, {.type = type});
  laptop.touch.ReportFrom(screen, {});
  EXPECT_TRUE(laptop.ui.ReceivedReports().empty());
  EXPECT_EQ(Forwarded(screen, {{1, 1, 1}}), (Reports{{1, 1, 1}})) << "none of them was counted";
}

TEST_F(TouchForwarding, FollowsTheControllerToTheHandlesItHasAfterEachPlug) {
  laptop.touch.rawListLateMs = 500;
  laptop.touch.Unplug();
  laptop.touch.Plug();
  laptop.faults.Fail<&os::QueryRawDevice>({.times = 1});
  EXPECT_EQ(Forwarded(screen, {{1, 0, 1}, {1, 0, 2}, {1, 0, 3}}), (Reports{{1, 0, 2}, {1, 0, 3}}));
  EXPECT_EQ(Forwarded(pad, {{17, 0, 1}}).size(), 1U);
  EXPECT_EQ(laptop.faults.Calls<&os::QueryRawDevice>(), 3U) << "who is known is not asked";
  EXPECT_TRUE(tessaview::RegisterCPanelRawInput());
  EXPECT_EQ(tessaview::gRawTouchScreen(), os::RawDevice::None) << "not listed, and handles may come again";
}

TEST_F(TouchForwarding, CountsScreenAndPadTogetherAlsoWhileTheUiIsAway) {
  laptop.ui.Die();
  EXPECT_TRUE(Forwarded(screen, {{1, 1, 1}, {1, 1, 2}}).empty());
  laptop.ui.Start();
  EXPECT_EQ(Forwarded(pad, {{17, 2, 3}, {17, 2, 4}}), (Reports{{17, 2, 4}}));
}

}  // namespace

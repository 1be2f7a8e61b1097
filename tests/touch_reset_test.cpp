// The reset of the C panel's touch controller at start-up, and its registration for raw input.

#include "tests/support.h"
#include "touch/device_reset.h"
#include "touch/raw_input.h"
#include "touch/touch_pad.h"

namespace {

using namespace support;

constexpr auto kCollection = L"HID\\VEN_GDX&DEV_1515&Col06";

/// Whether touches reach the UI.
bool TouchesReachTheUi(Laptop& laptop) {
  laptop.ui.ForgetReceived();
  laptop.touch.Lift();
  return laptop.ui.ReceivedReports().size() == 1;
}

TEST(TouchReset, SwitchesTheCollectionOffAndOnBetweenTwoRegistrations) {
  Laptop laptop({.uiRunning = true});
  laptop.Boot();
  const auto& switches = laptop.touch.NodeSwitches();
  ASSERT_EQ(switches.size(), 2U);
  EXPECT_EQ(switches[0].hardwareId, kCollection);
  EXPECT_TRUE(!switches[0].enable && switches[1].enable);
  const auto& requests = laptop.touch.RawInputRequests();
  ASSERT_EQ(requests.size(), 3U);
  for (const auto& request : requests) {
    const bool removes = &request == &requests[0];
    EXPECT_EQ(request.usagePage, 0x0D);
    EXPECT_EQ(request.flags, os::kRawInputPageOnly | (removes ? os::kRawInputRemove : os::kRawInputSink));
    EXPECT_EQ(request.target, removes ? os::WindowHandle::None : laptop.window.Handle());
  }
  EXPECT_TRUE(TouchesReachTheUi(laptop));
}

TEST(TouchReset, LeavesNodesAloneWhoseFirstHardwareIdIsSpeltOtherwise) {
  for (const auto& hardwareIds :
       {Texts{L"hid\\ven_gdx&dev_1515&col06"}, {L"HID_DEVICE", kCollection}, {L"HID\\VEN_GDX&DEV_1515&Col06&REV_01"}}) {
    Laptop laptop;
    laptop.touch.modeSwitch().hardwareIds = hardwareIds;
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.touch.NodeSwitches().empty()) << testing::PrintToString(hardwareIds);
  }
}

TEST(TouchReset, GoesOnAsFarAsItCan) {
  struct Trouble {
    void (*arrange)(sim::Faults& faults);
    std::size_t switches = 2;
    bool isConnected = true;
  };
  for (const auto& trouble :
       {Trouble{.arrange = [](auto& f) { f.template Fail<&os::RegisterRawInput>({.times = 1}); }, .switches = 0},
        Trouble{.arrange = [](auto& f) { f.template Fail<&os::EnableHidNode>({.times = 1}); }, .switches = 1},
        Trouble{.arrange = [](auto& f) { f.template Fail<&os::EnableHidNode>({.times = 1, .after = 1}); },
        .switches = 1,
        .isConnected = false},
        Trouble{.arrange = [](auto& f) { f.template Fail<&os::RawInputDeviceCount>(); }, .isConnected = false},
        Trouble{.arrange = [](auto& f) { f.template Fail<&os::RawInputDevices>({.error = 122, .times = 2}); }},
        Trouble{.arrange = [](auto& f) { f.template Fail<&os::RegisterRawInput>({.after = 1}); },
        .isConnected = false}}) {
    Laptop laptop({.uiRunning = true});
    trouble.arrange(laptop.faults);
    EXPECT_TRUE(laptop.Boot()) << "the start-up goes on";
    EXPECT_EQ(laptop.touch.NodeSwitches().size(), trouble.switches);
    EXPECT_EQ(TouchesReachTheUi(laptop), trouble.isConnected);
  }
}

TEST(TouchReset, LetsGoOfThePadBeforeItIsSwitchedOffAndTellsOfARestartThatIsNeeded) {
  for (const std::uint32_t others : {0U, 1U}) {
    Laptop laptop;
    auto& collection = laptop.touch.modeSwitch();
    collection.heldByAnother = others == 1;
    ASSERT_TRUE(tessaview::SearchTouchPadAgain());
    tessaview::ResetTouchDevices();
    EXPECT_EQ(collection.arrivals, 1 - others);
    EXPECT_EQ(laptop.trace.Count(L"[TouchReset] The device changes when the machine starts again \n"), others);
    laptop.faults.Fail<&os::EnableHidNode>();
    tessaview::ResetTouchDevices();
    EXPECT_TRUE(tessaview::SetModetoTouchPad()) << "what could not be switched off is still there";
  }
}

TEST(TouchReset, WaitsForAPadWithoutATimeLimit) {
  Laptop laptop({.uiRunning = true});
  laptop.touch.Unplug();
  EXPECT_FALSE(laptop.Boot()) << "ten minutes are not enough";
  EXPECT_TRUE(laptop.window.Exists());
  EXPECT_FALSE(laptop.settings.Exists()) << "the next step of start-up is still to come";
  laptop.touch.PlugAfter(4500);
  laptop.Advance(6000);  // it looks every second
  EXPECT_TRUE(laptop.settings.Exists());
  EXPECT_TRUE(TouchesReachTheUi(laptop));
}

TEST(RawInputRegistration, NeedsTheTouchPad) {
  Laptop laptop;
  EXPECT_FALSE(tessaview::RegisterCPanelRawInput());
  EXPECT_TRUE(laptop.touch.RawInputRequests().empty());
}

}  // namespace

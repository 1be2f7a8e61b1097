// The reset of the C panel's touch controller at start-up, and its registration for raw input.

#include "tests/support.h"
#include "touch/device_reset.h"
#include "touch/raw_input.h"

namespace {

using namespace support;

constexpr auto kCollection = L"HID\\VEN_GDX&DEV_1515&Col06";
constexpr std::uint32_t kRemovePage = 0x21, kPageToSink = 0x120;  // RIDEV_REMOVE, _INPUTSINK, each with _PAGEONLY

/// Whether touches reach the UI.
bool TouchesReachTheUi(sim::Laptop& laptop) {
  laptop.ui.ForgetReceived();
  laptop.touch.Lift();
  return laptop.ui.ReceivedReports().size() == 1;
}

TEST(TouchReset, SwitchesTheCollectionOffAndOnBetweenTwoRegistrations) {
  sim::Laptop laptop({.uiRunning = true});
  laptop.Boot();
  const auto& switches = laptop.touch.NodeSwitches();
  ASSERT_EQ(switches.size(), 2U);
  EXPECT_EQ(switches[0].hardwareId, kCollection);
  EXPECT_FALSE(switches[0].enable);
  EXPECT_TRUE(switches[1].enable);
  const auto& requests = laptop.touch.RawInputRequests();
  ASSERT_EQ(requests.size(), 3U);
  EXPECT_EQ(requests[0].flags, kRemovePage);
  EXPECT_EQ(requests[0].target, os::WindowHandle::None);
  for (const auto at : {1, 2}) {
    EXPECT_EQ(requests[at].flags, kPageToSink);
    EXPECT_EQ(requests[at].target, laptop.window.Handle());
  }
  for (const auto& request : requests) EXPECT_EQ(request.usagePage, 0x0D);
  EXPECT_TRUE(TouchesReachTheUi(laptop));
}

TEST(TouchReset, LeavesNodesAloneWhoseFirstHardwareIdIsSpeltOtherwise) {
  for (const auto& hardwareIds :
       {Texts{L"hid\\ven_gdx&dev_1515&col06"}, {L"HID_DEVICE", kCollection}, {L"HID\\VEN_GDX&DEV_1515&Col06&REV_01"}}) {
    sim::Laptop laptop;
    laptop.touch.modeSwitch().hardwareIds = hardwareIds;
    EXPECT_TRUE(laptop.Boot());
    EXPECT_TRUE(laptop.touch.NodeSwitches().empty()) << testing::PrintToString(hardwareIds);
  }
}

TEST(TouchReset, GoesOnAsFarAsItCan) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), std::vector<const wchar_t*>, bool>;
  for (const auto& [story, arrange, lines, connectedInTheEnd] :
       {Case{"raw input cannot be ended",
             [](sim::Laptop& l) { l.faults.Fail<&os::RegisterRawInput>({.error = 5, .times = 1}); },
             {L"RegisterRawInputDevices error = 5 (0x5) \n", L"UnRegisterRawInputDevice Fail"},
             true},
        {"switching off is refused",
         [](sim::Laptop& l) { l.faults.Fail<&os::EnableHidNode>({.error = 13, .times = 1}); },
         {L"SetupDiGetClassDevs error = 13 (0xD) \n", L"Dissable Device Fail\n", L"Enable Device Success\n"},
         true},
        {"switching on is refused, so that the collection stays off",
         [](sim::Laptop& l) { l.faults.Fail<&os::EnableHidNode>({.error = 13, .times = 1, .after = 1}); },
         {L"Dissable Device Success\n", L"SetupDiGetClassDevs error = 13 (0xD) \n", L"Enable Device Fail\n"},
         false},
        {"the nodes cannot be listed",
         [](sim::Laptop& l) { l.faults.Fail<&os::OpenHidNodes>({.error = 1168}); },
         {L"SetupDiGetClassDevs error = 1168 (0x490) \n", L"Dissable Device Fail\n",
          L"SetupDiGetClassDevs error = 1168 (0x490) \n", L"Enable Device Fail\n"},
         true},
        {"the raw input devices cannot be counted",
         [](sim::Laptop& l) { l.faults.Fail<&os::RawInputDeviceCount>(); },
         {L"Get number of devices failed\n"},
         false},
        {"the raw input devices cannot be listed",
         [](sim::Laptop& l) { l.faults.Fail<&os::RawInputDevices>({.error = 122}); },
         {L"Get pRawInputDeviceList failed\n"},
         false},
        {"raw input is refused",
         [](sim::Laptop& l) { l.faults.Fail<&os::RegisterRawInput>({.after = 1}); },
         {},
         false}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop({.uiRunning = true});
    arrange(laptop);
    EXPECT_TRUE(laptop.Boot()) << "the start-up goes on";
    EXPECT_TRUE(LogsInOrder(laptop, lines));
    EXPECT_EQ(TouchesReachTheUi(laptop), connectedInTheEnd);
  }
}

TEST(TouchReset, WaitsForAPadWithoutATimeLimit) {
  sim::Laptop laptop({.uiRunning = true});
  laptop.touch.Unplug();
  EXPECT_FALSE(laptop.Boot()) << "ten minutes are not enough";
  laptop.Advance(3'600'000);
  EXPECT_TRUE(laptop.window.Exists());
  EXPECT_FALSE(laptop.settings.Exists()) << "the next step of start-up is still to come";

  laptop.touch.PlugAfter(4500);
  laptop.Advance(6000);  // it looks every second
  EXPECT_TRUE(laptop.settings.Exists());
  EXPECT_TRUE(TouchesReachTheUi(laptop));
}

TEST(RawInputRegistration, NeedsTheTouchPad) {
  sim::Laptop laptop;
  EXPECT_FALSE(tessaview::RegisterCPanelRawInput());
  EXPECT_EQ(laptop.trace.DebugTexts(), Texts{L"Connect failed! RegisterRawInputDevice failed.\n"});
  EXPECT_TRUE(laptop.touch.RawInputRequests().empty());
}

}  // namespace

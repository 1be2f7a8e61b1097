// The reset of the C panel's touch controller at start-up, and its registration for raw input.

#include <gtest/gtest.h>

#include "tests/support.h"
#include "touch/device_reset.h"
#include "touch/raw_input.h"

namespace {

using support::LogsInOrder;

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

TEST(TouchReset, FindsTheNodeByItsFirstHardwareIdSpeltExactlySo) {
  using Case = std::tuple<const char*, std::vector<std::wstring>, std::size_t>;
  for (const auto& [story, hardwareIds, switches] : {
           Case{"as built", {kCollection, L"HID_DEVICE"}, 2},
           {"in small letters", {L"hid\\ven_gdx&dev_1515&col06"}, 0},
           {"not its first", {L"HID_DEVICE", kCollection}, 0},
           {"longer", {L"HID\\VEN_GDX&DEV_1515&Col06&REV_01"}, 0},
       }) {
    SCOPED_TRACE(story);
    sim::Laptop laptop;
    laptop.touch.modeSwitch().hardwareIds = hardwareIds;
    EXPECT_TRUE(laptop.Boot());
    EXPECT_EQ(laptop.touch.NodeSwitches().size(), switches);
  }
}

TEST(TouchReset, GoesOnAsFarAsItCan) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&), std::vector<const wchar_t*>, bool>;
  const Case cases[] = {
      {"raw input cannot be ended",
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
  };
  for (const auto& [story, arrange, lines, connectedInTheEnd] : cases) {
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

TEST(RawInputRegistration, SaysWhyItFailedAndStartUpGoesOn) {
  using Case = std::tuple<const char*, void (*)(sim::Faults&), const wchar_t*>;
  const Case cases[] = {
      {"no count", [](sim::Faults& f) { f.Fail<&os::RawInputDeviceCount>(); }, L"Get number of devices failed\n"},
      {"no list", [](sim::Faults& f) { f.Fail<&os::RawInputDevices>({.error = 122}); },
       L"Get pRawInputDeviceList failed\n"},
      {"refused", [](sim::Faults& f) { f.Fail<&os::RegisterRawInput>({.after = 1}); },
       L"Can't register raw input device\n"},
  };
  for (const auto& [story, arrange, line] : cases) {
    SCOPED_TRACE(story);
    sim::Laptop laptop({.uiRunning = true});
    arrange(laptop.faults);
    EXPECT_TRUE(laptop.Boot());
    const auto& debug = laptop.trace.DebugTexts();
    EXPECT_TRUE(laptop.trace.Contains(line) || std::count(debug.begin(), debug.end(), line) > 0);
    EXPECT_FALSE(TouchesReachTheUi(laptop));
  }
}

TEST(RawInputRegistration, NeedsTheTouchPad) {
  sim::Laptop laptop;
  EXPECT_FALSE(tessaview::RegisterCPanelRawInput());
  EXPECT_EQ(laptop.trace.DebugTexts(), std::vector<std::wstring>{L"Connect failed! RegisterRawInputDevice failed.\n"});
  EXPECT_TRUE(laptop.touch.RawInputRequests().empty());
}

}  // namespace

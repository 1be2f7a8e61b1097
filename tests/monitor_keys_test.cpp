// The names of monitors in the display-configuration database, made from what the monitors say of themselves.

#include "display/monitor_keys.h"

#include "display/monitor_list.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr auto kInstance = L"DISPLAY\\TSB8888\\4&1b1f3fd7&0&UID8388688";
constexpr std::size_t kDescriptors[] = {54, 72, 90, 108};

/// What the monitor keys read of the C panel's identification block; a name stands in its second descriptor.
Bytes CPanelBlock() {
  Bytes block{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00,  // header
              0x52, 0x62, 0x88, 0x88,                          // TSB, 0x8888
              0x00, 0x88, 0x88, 0x88,                          // serial 2290649088
              0x1C, 0x15};                                     // week 28 of 2011
  block.resize(128);
  block[kDescriptors[1] + 3] = 0xFC;
  block[kDescriptors[1] + 5] = 'p';
  block[127] = 0x26;
  return block;
}

void PutSerial(Bytes& block, std::size_t descriptor, std::string_view text) {
  for (const auto byte : {0x00, 0x00, 0x00, 0xFF, 0x00}) block[descriptor++] = static_cast<std::uint8_t>(byte);
  std::copy(text.begin(), text.end(), block.begin() + static_cast<std::ptrdiff_t>(descriptor));
}

TEST(MonitorKey, TakesTheSerialTextOfTheFirstDescriptorThatHasOneElseTheUnsignedNumber) {
  for (const auto& [text, serial] : {std::pair<std::string_view, const wchar_t*>{"AB-123\n      ", L"AB-123"},
                                     {"thirteen char", L"thirteen cha"},     // one more than there is room for
                                     {"\x80 caf\xE9", L"\u20AC caf\u00E9"},  // in the system's code page
                                     {std::string_view("end\0of text...", 13), L"end"},
                                     {"\n            ", L""}}) {
    for (const auto descriptor : kDescriptors) {
      auto block = CPanelBlock();
      PutSerial(block, descriptor, text);
      EXPECT_EQ(ReadEdidIdentity(block).serial, serial);
    }
  }
  auto block = CPanelBlock();
  PutSerial(block, 108, "second");
  PutSerial(block, 90, "first\n");
  EXPECT_EQ(ShortMonitorKey(kInstance, ReadEdidIdentity(block)), L"TSB8888FIRST_1C_07DB_26");
}

TEST(MonitorKey, OfAMonitorThatSaysNothingIsItsIdAndZeros) {
  auto block = CPanelBlock();
  block.resize(127);
  EXPECT_EQ(ShortMonitorKey(kInstance, ReadEdidIdentity(block)), L"TSB8888_00_0000_00");
  EXPECT_EQ(ShortMonitorKey(L"DISPLAY", {}), L"_00_0000_00");
  EXPECT_EQ(ShortMonitorKey(L"DISPLAY\\abc12ef", {}), L"ABC12EF_00_0000_00");
}

TEST(MonitorKey, HasALongFormWithTheMonitorsPlaceInTheMachine) {
  const auto edid = ReadEdidIdentity(CPanelBlock());
  os::MonitorDevice device{.instanceId = kInstance,
                           .devicePath = L"",
                           .adapterInstanceId = L"PCI\\VEN_8086&DEV_9b41&SUBSYS_1E221043&REV_02\\3&11583659&0&10",
                           .busNumber = 0x1A,
                           .address = 0x80FF00DE};
  EXPECT_EQ(LongMonitorKey(device, edid), L"TSB88882290649088_1C_07DB_26_8086_9B41_0000001A_80FF00DE_800050");
  device.instanceId = L"DISPLAY\\TSB8888\\4&1b1f3fd7&0&0000";
  device.adapterInstanceId = L"ROOT\\BASICDISPLAY\\0000";
  EXPECT_EQ(LongMonitorKey(device, edid), L"TSB88882290649088_1C_07DB_26___0000001A_80FF00DE_0");
}

TEST(MonitorList, NamesTheConnectedMonitors) {
  Laptop laptop;
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888#4&1b1f3fd7&0&uid8392784";
  laptop.displays.AddMonitor({.instanceId = L"DISPLAY\\DEL40A9\\5&2&0&UID256", .attached = false});
  laptop.displays.AddMonitor({.targetAvailable = false});
  const auto monitors = tessaview::ListConnectedMonitors();
  ASSERT_EQ(monitors.size(), 4U);
  EXPECT_EQ(monitors[1].shortKey, L"TSB88882290649088_1C_07DB_26");
  EXPECT_EQ(monitors[2].shortKey, L"DEL40A9_00_0000_00") << "no identification block to be had";
}

}  // namespace

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "os/hid.h"

namespace sim {

inline constexpr std::uint8_t kScreenReport = 1;  // id of the touch screen's report

inline constexpr std::uint32_t kNever = 0xFFFFFFFF;

/// One HID collection: a device node, its interface and what it reports. A test may change any field.
struct HidCollection {
  std::vector<std::wstring> hardwareIds;  // of its node, the most specific first
  std::wstring path;                      // of its interface
  os::HidAttributes attributes;
  os::HidCapabilities capabilities;
  std::vector<os::HidValue> inputValues, outputValues;

  bool plugged = true, enabled = true;
  bool exclusive = false;        // the system keeps it to itself: opening it is refused
  bool hasPreparsedData = true;  // without it there are no capabilities
  os::HidInterface::Detail detail = os::HidInterface::Detail::Read;  // how far reading its interface path comes
  os::RawDevice raw = os::RawDevice::None;  // given by TouchController, another with every arrival
  std::uint64_t listedFromMs = 0;           // when the list of raw devices has it
  std::uint32_t takesReportMs = 0;          // how long it needs to take an output report; kNever for one that is stuck
  bool heldByAnother = false;               // another program has it open, too

  std::uint32_t arrivals = 0;  // how often it came back; handles opened before are of no use

  [[nodiscard]] std::wstring FirstId() const { return hardwareIds.empty() ? std::wstring() : hardwareIds[0]; }
  [[nodiscard]] bool Works() const { return plugged && enabled; }
};

/// The collections of the C panel's controller and what else is on the HID bus of every laptop.
[[nodiscard]] HidCollection MakeTouchScreen();
[[nodiscard]] HidCollection MakeTouchPad();
[[nodiscard]] HidCollection MakeModeSwitch();
[[nodiscard]] HidCollection MakeMouse();
[[nodiscard]] HidCollection MakeMediaKeys();

/// The ids of the C panel's controller. Its node ids say "GDX" and "1515".
inline constexpr std::uint16_t kTouchVendor = 0x4758, kTouchProduct = 0x1515;

}  // namespace sim

#pragma once

#include <cstdint>
#include <string>

#include "os/displays.h"
#include "os/types.h"

namespace tessaview {

/// A monitor's name in the display-configuration database, or its beginning: manufacturer and product.
struct MonitorKey {
  const wchar_t* text;
};

/// The C panel's.
inline constexpr MonitorKey kCPanelModel{L"TSB8888"};

/// What a monitor's EDID says of the single piece. All zero or empty when the EDID cannot be read.
struct EdidIdentity {
  std::wstring serial;  // of the serial descriptor, at most 12 characters, or the 32-bit number in decimal
  std::uint8_t week = 0;
  std::uint16_t year = 0;
  std::uint8_t checksum = 0;
};

/// Reads the identity from a monitor's EDID; fewer than the 128 bytes of the base block count as unreadable.
[[nodiscard]] EdidIdentity ReadEdidIdentity(os::BytesView edid);

/// The name of a monitor in the display-configuration database, short form: the id text of its device instance
/// (manufacturer and product), serial, week, year and checksum, such as "TSB88882290649088_1C_07DB_26".
[[nodiscard]] std::wstring ShortMonitorKey(const std::wstring& instanceId, const EdidIdentity& edid);

/// The long form: the short form, then vendor and device of the adapter it is connected to, the device node's bus
/// number and address, and the number behind "&UID" in its instance id.
[[nodiscard]] std::wstring LongMonitorKey(const os::MonitorDevice& device, const EdidIdentity& edid);

}  // namespace tessaview

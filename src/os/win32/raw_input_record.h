#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

#include "os/hid.h"

namespace os::win32 {

/// Room for one raw input record: a touch controller's reports are tens of bytes, a few to a record at most.
struct alignas(RAWINPUT) RawInputBuffer {
  std::array<std::uint8_t, 4096> bytes;
};

/// Reads the record behind a WM_INPUT into `buffer`, which the result's reports point into. A record that cannot be
/// read, or has no room, comes back with `sizeMatches` false and without a type of HID.
[[nodiscard]] RawInput ReadRawInput(HRAWINPUT handle, RawInputBuffer& buffer);

}  // namespace os::win32

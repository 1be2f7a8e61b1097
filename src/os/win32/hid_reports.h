#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "os/types.h"

namespace os::win32 {

/// Where the reports begin in a raw input record of HID (RAWINPUT, data.hid.bRawData).
inline constexpr std::size_t kReportsAt = 32;

/// The reports in a raw input record of HID, as much of it as was read: `count` of them, of `size` bytes each, are
/// announced; what was not read is cut off.
constexpr BytesView HidReports(BytesView record, std::uint32_t size, std::uint32_t count) {
  if (record.size() < kReportsAt) return {};
  const auto announced = std::uint64_t{count} * size;
  const auto length = std::min<std::uint64_t>(announced, record.size() - kReportsAt);
  return record.subspan(kReportsAt, static_cast<std::size_t>(length));
}

}  // namespace os::win32

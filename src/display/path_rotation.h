#pragma once

#include <cstdint>

#include "display/monitor_keys.h"

namespace tessaview {

/// The rotation (DISPLAYCONFIG_ROTATION, 1 to 4) of the last active path whose monitor device path carries
/// `key` as one of its parts; 0 when none does. Any thread; milliseconds.
[[nodiscard]] std::uint32_t GetMonitorRotation(MonitorKey key);

/// Turns every active path that carries `key` to 270 degrees, one configuration change for each. Returns the
/// result of the last change (0 = success), or -1 when no path carries the key. Any thread; can take seconds.
std::int32_t SetMonitorEx(MonitorKey key);

}  // namespace tessaview

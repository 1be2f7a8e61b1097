#pragma once

#include <cstdint>

#include "os/types.h"

namespace os {

/// Where the power comes from (SYSTEM_POWER_STATUS).
struct PowerStatus {
  std::uint8_t acLineStatus = 0;      // 0 battery, 1 mains, 255 unknown
  std::uint8_t systemStatusFlag = 0;  // 1 = battery saver on
};

/// The machine's power status (GetSystemPowerStatus). Any thread.
[[nodiscard]] Result<PowerStatus> QueryPowerStatus();

}  // namespace os

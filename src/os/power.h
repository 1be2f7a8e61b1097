#pragma once

#include <array>
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

/// A power scheme (GUID), as its 16 bytes.
using PowerScheme = std::array<std::uint8_t, 16>;

/// The power scheme in force (PowerGetActiveScheme). Any thread.
[[nodiscard]] Result<PowerScheme> ActivePowerScheme();

/// What closing the lid does in a scheme, on mains or on battery: 0 nothing, 1 sleep, 2 hibernate, 3 shut down
/// (PowerReadACValueIndex or PowerReadDCValueIndex of GUID_SYSTEM_BUTTON_SUBGROUP, GUID_LIDCLOSE_ACTION). Any thread.
[[nodiscard]] Result<std::uint32_t> LidCloseActionOf(const PowerScheme& scheme, bool onMains);

}  // namespace os

#pragma once

#include <cstdint>
#include <optional>

#include "os/waiting.h"

namespace os {

/// The state of a system service, SERVICE_STOPPED (1) to SERVICE_PAUSED (7) (OpenSCManagerW, OpenServiceW,
/// QueryServiceStatus). Empty when there is no such service or it cannot be asked. Any thread; milliseconds.
[[nodiscard]] std::optional<std::uint32_t> ServiceState(const wchar_t* name);
template <>
inline constexpr WaitingMark kWaiting<&ServiceState>{Waiting::Deaf, false};
inline constexpr std::uint32_t kServiceRunning = 4;

}  // namespace os

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "os/displays.h"

// All that is changed of the displays goes through here. While the session is not at the console nothing is, and the
// answer is the system's own for a process that may not: DISP_CHANGE_FAILED, ERROR_ACCESS_DENIED. Any thread; can take
// seconds.
namespace tessaview {

/// Changes one display for now and for later, for all users. Returns DISP_CHANGE_SUCCESSFUL or another DISP_CHANGE
/// value (ChangeDisplaySettingsExW).
std::int32_t ChangeDisplay(const std::wstring& gdiName, const os::DisplaySettings& settings);

/// Changes the configuration of all displays. Returns 0 or a system error code (SetDisplayConfig).
std::int32_t ChangeDisplays(const std::vector<os::DisplayPath>& paths, const std::vector<os::DisplayMode>& modes,
                            std::uint32_t flags);

}  // namespace tessaview

#pragma once

#include <windows.h>

#include <optional>

#include "os/service_window.h"

namespace os::win32 {

/// The GUID under which the system knows a power setting.
[[nodiscard]] const GUID& GuidOf(PowerSetting setting);

/// The group of settings that tells what buttons and the lid do (GUID_SYSTEM_BUTTON_SUBGROUP).
[[nodiscard]] const GUID& SystemButtonSubgroup();

/// The power setting behind a GUID; empty for one the controller does not listen to.
[[nodiscard]] std::optional<PowerSetting> PowerSettingOf(const GUID& guid);

}  // namespace os::win32

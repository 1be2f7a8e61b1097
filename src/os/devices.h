#pragma once

#include <string>
#include <vector>

namespace os {

/// The class names of all present devices, such as "Monitor", one for each device; empty where it cannot be read
/// (SetupDiGetClassDevsW with DIGCF_PRESENT | DIGCF_ALLCLASSES, SetupDiGetDevicePropertyW with DEVPKEY_Device_Class of
/// type DEVPROP_TYPE_STRING). Any thread; tens of milliseconds.
[[nodiscard]] std::vector<std::wstring> PresentDeviceClasses();

}  // namespace os

#pragma once

#include <string>

namespace lab {

/// True while the system lists a HID interface whose path contains `part`, compared in lower case (SetupDi).
[[nodiscard]] bool IsHidInterfacePresent(const std::wstring& part);

}  // namespace lab

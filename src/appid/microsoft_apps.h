#pragma once

#include <string>

#include "os/types.h"

namespace tessaview {

/// Whether a package family or product name is that of an application of Microsoft's which must not be moved by a drag:
/// it contains "Microsoft" in any case, and none of the names that are allowed all the same.
[[nodiscard]] bool CheckIsMicrosoftApp(const std::wstring& name);

/// Whether a window must not be moved by a drag, because its application is Microsoft's or cannot be told. Any thread;
/// up to 100 ms for a packaged application that is only starting.
[[nodiscard]] bool IsMSApp(os::WindowHandle window);

}  // namespace tessaview

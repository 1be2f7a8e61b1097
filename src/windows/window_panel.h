#pragma once

#include "os/types.h"

namespace tessaview {

/// Whether most of a window lies on a panel; for a window that lies on no display, whether the panel is the nearest.
/// False while the panel is absent. Any thread.
[[nodiscard]] bool IsOnBPanel(os::WindowHandle window);
[[nodiscard]] bool IsOnCPanel(os::WindowHandle window);

}  // namespace tessaview

#pragma once

#include "os/types.h"

namespace tessaview {

/// Whether a window lies on a panel, for the most part or nearest to it. False while the panel is absent. Any thread.
[[nodiscard]] bool IsOnBPanel(os::WindowHandle window);
[[nodiscard]] bool IsOnCPanel(os::WindowHandle window);

}  // namespace tessaview

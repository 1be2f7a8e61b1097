#pragma once

#include "os/types.h"

namespace tessaview {

/// Whether a window takes the whole primary display, as a game or a slide show does. Any thread.
[[nodiscard]] bool IsFullScreenWindow(os::WindowHandle window);

}  // namespace tessaview

#pragma once

#include <memory>

#include "os/kernel_objects.h"
#include "windows/mover/window_mover.h"

namespace tessaview {

/// Moves a window to the panel it was thrown to, on a thread of its own, and records that the mover was used. The move
/// begins once the UI has been told of the throw, or 200 ms later. Returns at once. Any thread.
void MoveThrownWindow(const ThrownWindow& thrown, std::shared_ptr<const os::Event> isTold);

}  // namespace tessaview

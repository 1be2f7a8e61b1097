#pragma once

#include "os/service_window.h"

namespace tessaview {

/// What happens on each event of the service window: the one place where the system's notifications enter the
/// controller. All run on the main thread.
[[nodiscard]] const os::ServiceWindowEvents& ServiceWindowEvents();

}  // namespace tessaview

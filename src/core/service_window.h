#pragma once

#include <cstdint>

#include "os/types.h"

namespace tessaview {

/// The hidden main window: the target of every notification, timer and command. None before it was created. Any thread.
[[nodiscard]] os::WindowHandle gServiceWindow();
void SetServiceWindow(os::WindowHandle window);  // start-up

/// The timers of the service window, by their ids.
enum class ServiceTimer : std::uint64_t {
  Update = 9487,           // asks the UI to look for updates
  RetailDemo = 9527,       // on a machine in a shop: brings the panel back
  RetailDemoClone = 9528,  // on a machine in a shop: extends a duplicated desktop
};

/// Starts a timer with its own period; one that runs starts again. Main thread.
void StartServiceTimer(ServiceTimer timer);
void StopServiceTimer(ServiceTimer timer);

}  // namespace tessaview

#pragma once

#include "os/displays.h"

namespace tessaview {

/// The active display paths with their modes; empty when they cannot be read. Any thread; milliseconds.
[[nodiscard]] os::DisplayConfiguration ActivePaths();

/// The projection that the display-configuration database names; None when it cannot be read. Any thread; milliseconds.
[[nodiscard]] os::Topology CurrentTopology();

}  // namespace tessaview

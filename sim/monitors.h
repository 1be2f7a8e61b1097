#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "os/displays.h"
#include "os/types.h"

// The desktop as windows see it: the displays that show a picture of their own, each with the area that the taskbars
// leave free.
namespace sim {

/// An edge of a display.
enum class Edge { Left, Top, Right, Bottom };

/// The monitors in the system's order.
[[nodiscard]] std::vector<os::Monitor> Monitors();

/// The monitor that most of an area lies on, or else the nearest; nothing while there is none.
[[nodiscard]] std::optional<os::Monitor> MonitorUnder(const os::Rect& area);

/// A monitor's dots per inch; 96 when it is unknown.
[[nodiscard]] std::uint32_t DpiOf(os::MonitorHandle monitor);

/// The point of the desktop that is nearest to this one.
[[nodiscard]] os::Point OntoDesktop(os::Point point);

[[nodiscard]] bool Contains(const os::Rect& area, os::Point point);

}  // namespace sim

#pragma once

#include <string>
#include <vector>

#include "display/monitor_keys.h"
#include "os/displays.h"

namespace tessaview {

/// One present monitor device, and its names in the display-configuration database.
struct ListedMonitor {
  os::MonitorDevice device;
  std::wstring shortKey, longKey;
};

/// The monitors connected now, in the system's order. Read afresh at every call. Any thread; milliseconds.
[[nodiscard]] std::vector<ListedMonitor> ListConnectedMonitors();

}  // namespace tessaview

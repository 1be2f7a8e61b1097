#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "display/monitor_keys.h"
#include "os/displays.h"

namespace tessaview {

/// One present monitor device, and the active display path it belongs to.
struct ListedMonitor {
  os::MonitorDevice device;
  EdidIdentity edid;
  std::wstring shortKey, longKey;  // its names in the display-configuration database

  // Of the matching active path; empty and zero when the monitor is not part of the desktop.
  std::wstring gdiSourceName;
  std::wstring friendlyName;
  const wchar_t* outputTechnology = L"";
  std::uint32_t rotation = 0;  // DISPLAYCONFIG_ROTATION
};

/// The monitors connected now, in the system's order. Read afresh at every call. Any thread; milliseconds.
[[nodiscard]] std::vector<ListedMonitor> ListConnectedMonitors();

}  // namespace tessaview

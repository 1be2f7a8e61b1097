#include "display/virtual_monitor.h"

#include "core/trace_log.h"
#include "os/displays.h"

namespace tessaview {

bool CheckVirtualMonitor() {
  const auto paths = os::WallpaperMonitorPaths();
  if (!paths) return false;
  Log(L"[CheckVirtualMonitor] monitor count=%d\n", paths->size());
  for (const auto& path : *paths) {
    Log(L"[CheckVirtualMonitor] monitor device path=%ls\n", path);
    if (path.empty() || path.find(L"lagacy") != std::wstring::npos) return true;  // this spelling is what is looked for
  }
  return false;
}

}  // namespace tessaview

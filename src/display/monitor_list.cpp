#include "display/monitor_list.h"

#include "core/letter_case.h"
#include "display/output_technology.h"
#include "os/registry.h"

namespace tessaview {
namespace {

os::Bytes ReadEdid(const std::wstring& instanceId) {
  const auto key = L"SYSTEM\\CurrentControlSet\\Enum\\" + instanceId + L"\\Device Parameters";
  return os::ReadRegistryBytes(key, L"EDID").value_or(os::Bytes{});
}

ListedMonitor Describe(os::MonitorDevice device) {
  ListedMonitor monitor;
  monitor.edid = ReadEdidIdentity(ReadEdid(device.instanceId));
  monitor.shortKey = ShortMonitorKey(device.instanceId, monitor.edid);
  monitor.longKey = LongMonitorKey(device, monitor.edid);
  monitor.device = std::move(device);
  return monitor;
}

ListedMonitor* WithDevicePath(std::vector<ListedMonitor>& monitors, const std::wstring& devicePath) {
  const auto wanted = UpperCased(devicePath);
  for (auto& monitor : monitors) {
    if (UpperCased(monitor.device.devicePath) == wanted) return &monitor;
  }
  return nullptr;
}

void AddActivePaths(std::vector<ListedMonitor>& monitors) {
  const auto all = os::QueryDisplayConfiguration(os::DisplayQuery::AllPaths, os::DisplayQuery::AllPaths);
  if (!all) return;
  for (const auto& path : all->paths) {
    if (path.flags != os::kPathActive || !path.target.available) continue;
    const auto target = os::QueryTargetName(path);
    auto* const monitor = WithDevicePath(monitors, target.monitorDevicePath);
    if (monitor == nullptr) continue;
    monitor->gdiSourceName = os::SourceGdiName(path);
    monitor->friendlyName = target.friendlyName;
    monitor->outputTechnology = OutputTechnologyName(path.target.outputTechnology);
    monitor->rotation = path.target.rotation;
  }
}

}  // namespace

std::vector<ListedMonitor> ListConnectedMonitors() {
  std::vector<ListedMonitor> monitors;
  for (auto& device : os::MonitorDevices()) monitors.push_back(Describe(std::move(device)));
  AddActivePaths(monitors);
  return monitors;
}

}  // namespace tessaview

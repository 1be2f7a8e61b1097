#include "display/monitor_list.h"

#include "os/registry.h"

namespace tessaview {
namespace {

os::Bytes ReadEdid(const std::wstring& instanceId) {
  const auto key = L"SYSTEM\\CurrentControlSet\\Enum\\" + instanceId + L"\\Device Parameters";
  return os::ReadRegistryBytes(key, L"EDID").value_or(os::Bytes{});
}

ListedMonitor Describe(os::MonitorDevice device) {
  const auto edid = ReadEdidIdentity(ReadEdid(device.instanceId));
  auto shortKey = ShortMonitorKey(device.instanceId, edid), longKey = LongMonitorKey(device, edid);
  return {std::move(device), std::move(shortKey), std::move(longKey)};
}

}  // namespace

std::vector<ListedMonitor> ListConnectedMonitors() {
  std::vector<ListedMonitor> monitors;
  for (auto& device : os::MonitorDevices()) monitors.push_back(Describe(std::move(device)));
  return monitors;
}

}  // namespace tessaview

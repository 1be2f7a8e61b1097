// Monitor devices and their place in the device tree.
#include <windows.h>

#include <cfgmgr32.h>

#include <array>

#include "os/displays.h"
#include "os/win32/device_list.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

// GUID_DEVINTERFACE_MONITOR, {E6F07B5F-EE97-4A90-B076-33F57BF4EAA7}
constexpr GUID kMonitorInterface{0xE6F07B5F, 0xEE97, 0x4A90, {0xB0, 0x76, 0x33, 0xF5, 0x7B, 0xF4, 0xEA, 0xA7}};

std::wstring InstanceId(DEVINST node) {
  std::array<wchar_t, MAX_DEVICE_ID_LEN + 1> id{};
  if (CM_Get_Device_IDW(node, id.data(), static_cast<ULONG>(id.size()), 0) != CR_SUCCESS) return {};
  return win32::TextOf(id);
}

std::wstring ParentInstanceId(DEVINST node) {
  DEVINST parent = 0;
  if (CM_Get_Parent(&parent, node, 0) != CR_SUCCESS) return {};
  return InstanceId(parent);
}

std::uint32_t NumberProperty(DEVINST node, ULONG property) {
  ULONG value = 0;
  ULONG size = sizeof value;
  if (CM_Get_DevNode_Registry_PropertyW(node, property, nullptr, &value, &size, 0) != CR_SUCCESS) return 0;
  return value;
}

MonitorDevice DeviceOf(const win32::DeviceInterface& listed) {
  const DEVINST node = listed.node.DevInst;
  return {InstanceId(node), listed.path, ParentInstanceId(node), NumberProperty(node, CM_DRP_BUSNUMBER),
          NumberProperty(node, CM_DRP_ADDRESS)};
}

}  // namespace

std::vector<MonitorDevice> MonitorDevices() {
  std::vector<MonitorDevice> monitors;
  const win32::DeviceList devices = win32::ListInterfaces(kMonitorInterface);
  if (!devices) return monitors;
  for (const auto& listed : win32::ReadInterfaces(devices, kMonitorInterface)) {
    if (listed.hasDetail) monitors.push_back(DeviceOf(listed));
  }
  return monitors;
}

}  // namespace os

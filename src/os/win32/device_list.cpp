#include "os/win32/device_list.h"

#include <cstddef>

#include "os/win32/win32_support.h"

namespace os::win32 {
namespace {

DeviceInterface ReadInterface(const DeviceList& devices, SP_DEVICE_INTERFACE_DATA& listed) {
  static_assert(sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W) == 8);
  constexpr std::size_t kPathOffset = offsetof(SP_DEVICE_INTERFACE_DETAIL_DATA_W, DevicePath);

  DeviceInterface found;
  SetupDiGetDeviceInterfaceDetailW(devices.get(), &listed, nullptr, 0, &found.detailSize, nullptr);
  if (found.detailSize < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W)) return found;

  Bytes buffer(found.detailSize);
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer.data());
  detail->cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
  found.node.cbSize = sizeof found.node;
  found.hasDetail =
      SetupDiGetDeviceInterfaceDetailW(devices.get(), &listed, detail, found.detailSize, nullptr, &found.node) != FALSE;
  if (found.hasDetail) found.path = TextOf({detail->DevicePath, (buffer.size() - kPathOffset) / sizeof(wchar_t)});
  return found;
}

}  // namespace

DeviceList ListInterfaces(const GUID& interfaceClass) {
  const HDEVINFO devices =
      SetupDiGetClassDevsW(&interfaceClass, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  return DeviceList(devices == INVALID_HANDLE_VALUE ? nullptr : devices);
}

DeviceList ListAllDevices() {
  const HDEVINFO devices = SetupDiGetClassDevsW(nullptr, nullptr, nullptr, DIGCF_PRESENT | DIGCF_ALLCLASSES);
  return DeviceList(devices == INVALID_HANDLE_VALUE ? nullptr : devices);
}

std::vector<DeviceInterface> ReadInterfaces(const DeviceList& devices, const GUID& interfaceClass) {
  std::vector<DeviceInterface> interfaces;
  SP_DEVICE_INTERFACE_DATA listed{};
  listed.cbSize = sizeof listed;
  for (DWORD index = 0; SetupDiEnumDeviceInterfaces(devices.get(), nullptr, &interfaceClass, index, &listed) != FALSE;
       ++index) {
    interfaces.push_back(ReadInterface(devices, listed));
  }
  return interfaces;
}

}  // namespace os::win32

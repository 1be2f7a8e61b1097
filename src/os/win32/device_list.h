#pragma once

#include <windows.h>

#include <setupapi.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Lists of present devices, as the interfaces they offer.
namespace os::win32 {

struct DeviceListCloser {
  void operator()(void* devices) const noexcept { SetupDiDestroyDeviceInfoList(devices); }
};
using DeviceList = std::unique_ptr<void, DeviceListCloser>;

/// One present interface: its path and the device node behind it.
struct DeviceInterface {
  DWORD detailSize = 0;    // bytes of its detail, 0 when the system names no size
  bool hasDetail = false;  // path and node below were read
  std::wstring path;
  SP_DEVINFO_DATA node{};
};

/// The present devices that offer an interface (SetupDiGetClassDevsW); null when they cannot be listed.
[[nodiscard]] DeviceList ListInterfaces(const GUID& interfaceClass);

/// All present devices of all classes (SetupDiGetClassDevsW, DIGCF_PRESENT | DIGCF_ALLCLASSES); null when they cannot
/// be listed.
[[nodiscard]] DeviceList ListAllDevices();

/// The interfaces of a list, in its order (SetupDiEnumDeviceInterfaces, SetupDiGetDeviceInterfaceDetailW for size and
/// data).
[[nodiscard]] std::vector<DeviceInterface> ReadInterfaces(const DeviceList& devices, const GUID& interfaceClass);

}  // namespace os::win32

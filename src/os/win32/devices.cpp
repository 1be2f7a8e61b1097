#include "os/devices.h"

#include "os/win32/device_list.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

// DEVPKEY_Device_Class, {A45C254E-DF1C-4EFD-8020-67D146A850E0} 9
constexpr DEVPROPKEY kDeviceClass{{0xA45C254E, 0xDF1C, 0x4EFD, {0x80, 0x20, 0x67, 0xD1, 0x46, 0xA8, 0x50, 0xE0}}, 9};

std::wstring ClassOf(const win32::DeviceList& devices, SP_DEVINFO_DATA& node) {
  DEVPROPTYPE type = 0;
  DWORD size = 0;
  SetupDiGetDevicePropertyW(devices.get(), &node, &kDeviceClass, &type, nullptr, 0, &size, 0);
  std::vector<wchar_t> text((size + 1) / sizeof(wchar_t));  // the size may be odd
  if (text.empty() || SetupDiGetDevicePropertyW(devices.get(), &node, &kDeviceClass, &type,
                                                reinterpret_cast<BYTE*>(text.data()), size, nullptr, 0) == FALSE) {
    return {};
  }
  return type == DEVPROP_TYPE_STRING ? win32::TextOf(text) : std::wstring();
}

}  // namespace

std::vector<std::wstring> PresentDeviceClasses() {
  std::vector<std::wstring> classes;
  const win32::DeviceList devices = win32::ListAllDevices();
  if (!devices) return classes;
  SP_DEVINFO_DATA node{};
  node.cbSize = sizeof node;
  for (DWORD index = 0; SetupDiEnumDeviceInfo(devices.get(), index, &node) != FALSE; ++index) {
    classes.push_back(ClassOf(devices, node));
  }
  return classes;
}

}  // namespace os

#include "kit/hid_presence.h"

#include <windows.h>

extern "C" {
#include <hidsdi.h>
}
#include <setupapi.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cwctype>

namespace lab {
namespace {

std::wstring LowerPath(HDEVINFO list, SP_DEVICE_INTERFACE_DATA& entry) {
  alignas(SP_DEVICE_INTERFACE_DETAIL_DATA_W) std::array<std::byte, 1024> buffer{};
  auto* detail = reinterpret_cast<SP_DEVICE_INTERFACE_DETAIL_DATA_W*>(buffer.data());
  detail->cbSize = sizeof *detail;
  if (!SetupDiGetDeviceInterfaceDetailW(list, &entry, detail, buffer.size(), nullptr, nullptr)) return {};
  std::wstring path = detail->DevicePath;
  std::transform(path.begin(), path.end(), path.begin(), [](wchar_t c) { return static_cast<wchar_t>(towlower(c)); });
  return path;
}

}  // namespace

bool IsHidInterfacePresent(const std::wstring& part) {
  GUID hid;
  HidD_GetHidGuid(&hid);
  const HDEVINFO list = SetupDiGetClassDevsW(&hid, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
  if (list == INVALID_HANDLE_VALUE) return false;
  SP_DEVICE_INTERFACE_DATA entry{};
  entry.cbSize = sizeof entry;
  bool found = false;
  for (DWORD i = 0; !found && SetupDiEnumDeviceInterfaces(list, nullptr, &hid, i, &entry); i++) {
    found = LowerPath(list, entry).find(part) != std::wstring::npos;
  }
  SetupDiDestroyDeviceInfoList(list);
  return found;
}

}  // namespace lab

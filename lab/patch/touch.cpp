// The touch controller's device nodes and its raw input.
#include <windows.h>

#include <setupapi.h>

#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kit/touch_controller.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

/// The hardware ids that Windows lists first for the collections of the touch controller, in the order of TouchDevice.
constexpr std::wstring_view kFirstIds[] = {L"HID\\VEN_GDX&DEV_1515&Col05", L"HID\\VEN_GDX&DEV_1515&Col06"};

/// Which collection a node is, by its instance path, which begins like its first id; none for other nodes.
std::optional<TouchDevice> CollectionAt(HDEVINFO list, SP_DEVINFO_DATA* node) {
  std::array<wchar_t, MAX_PATH> path{};
  SetupDiGetDeviceInstanceIdW(list, node, path.data(), MAX_PATH, nullptr);
  for (const auto which : {kTouchPad, kTouchScreen}) {
    if (_wcsnicmp(path.data(), kFirstIds[which].data(), kFirstIds[which].size()) == 0) return which;
  }
  return std::nullopt;
}

/// Wine 8 lists a HID node's instance path before its hardware ids, Wine 10 makes ids of vendor and product number.
BOOL WINAPI FirstIdOfCollection(HDEVINFO list, PSP_DEVINFO_DATA node, DWORD property, PDWORD type, PBYTE buffer,
                                DWORD size, PDWORD required) {
  const auto which = CollectionAt(list, node);
  if (property != SPDRP_HARDWAREID || !which) {
    return SetupDiGetDeviceRegistryPropertyW(list, node, property, type, buffer, size, required);
  }
  const std::wstring ids = std::wstring(kFirstIds[*which]) + L'\0';
  const auto bytes = static_cast<DWORD>((ids.size() + 1) * sizeof(wchar_t));
  if (required != nullptr) *required = bytes;
  if (size < bytes) return SetLastError(ERROR_INSUFFICIENT_BUFFER), FALSE;
  std::memcpy(buffer, ids.c_str(), bytes);
  return TRUE;
}

/// Wine cannot disable or enable a device: the collection is unplugged and plugged in again instead, both when it is
/// enabled, because a device that is merely disabled stays listed on Windows. The state wanted is remembered from the
/// first of the two calls to the second.
thread_local DWORD wantedState = 0;

BOOL WINAPI RememberPropertyChange(HDEVINFO list, PSP_DEVINFO_DATA node, PSP_CLASSINSTALL_HEADER parameters,
                                   DWORD size) {
  if (parameters->InstallFunction != DIF_PROPERTYCHANGE || size < sizeof(SP_PROPCHANGE_PARAMS)) {
    return SetupDiSetClassInstallParamsW(list, node, parameters, size);
  }
  wantedState = reinterpret_cast<const SP_PROPCHANGE_PARAMS*>(parameters)->StateChange;
  return TRUE;
}

BOOL WINAPI ChangeByPlug(DI_FUNCTION function, HDEVINFO list, PSP_DEVINFO_DATA node) {
  if (function != DIF_PROPERTYCHANGE) return SetupDiCallClassInstaller(function, list, node);
  const auto which = CollectionAt(list, node).value_or(kTouchScreen);
  const bool enable = wantedState == DICS_ENABLE;
  Report(std::wstring(enable ? L"patch enable " : L"patch disable ").append(kFirstIds[which]));
  TouchController controller;
  if (!enable || (controller.Unplug(which) && controller.Plug(which))) return TRUE;
  SetLastError(ERROR_GEN_FAILURE);
  return FALSE;
}

/// Wine takes a registration for a whole usage page and never delivers to it: the page's two usages that the controller
/// has are registered one by one.
BOOL WINAPI RegisterPageByUsages(PCRAWINPUTDEVICE devices, UINT count, UINT size) {
  std::vector<RAWINPUTDEVICE> expanded;
  for (UINT i = 0; i < count; i++) {
    RAWINPUTDEVICE device = devices[i];
    if ((device.dwFlags & RIDEV_PAGEONLY) == 0) {
      expanded.push_back(device);
      continue;
    }
    device.dwFlags &= ~static_cast<DWORD>(RIDEV_PAGEONLY);
    for (const USHORT usage : {USHORT{4}, USHORT{5}}) {
      device.usUsage = usage;
      expanded.push_back(device);
    }
  }
  return RegisterRawInputDevices(expanded.data(), static_cast<UINT>(expanded.size()), size);
}

}  // namespace

std::array<Redirection, 4> TouchCalls() {
  return {{{"SetupDiGetDeviceRegistryPropertyW", reinterpret_cast<void*>(FirstIdOfCollection)},
           {"SetupDiSetClassInstallParamsW", reinterpret_cast<void*>(RememberPropertyChange)},
           {"SetupDiCallClassInstaller", reinterpret_cast<void*>(ChangeByPlug)},
           {"RegisterRawInputDevices", reinterpret_cast<void*>(RegisterPageByUsages)}}};
}

}  // namespace lab::patch

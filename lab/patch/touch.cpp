// The touch controller's device nodes and its raw input.
#include <windows.h>

#include <setupapi.h>

#include <cstring>
#include <string>
#include <vector>

#include "kit/touch_controller.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

std::wstring FirstHardwareId(HDEVINFO list, SP_DEVINFO_DATA* node) {
  std::vector<wchar_t> ids(1024);
  const auto room = static_cast<DWORD>((ids.size() - 2) * sizeof(wchar_t));
  const BOOL read = SetupDiGetDeviceRegistryPropertyW(list, node, SPDRP_HARDWAREID, nullptr,
                                                      reinterpret_cast<BYTE*>(ids.data()), room, nullptr);
  return read ? std::wstring(ids.data()) : std::wstring();
}

/// An instance path without its last part, the instance: "HID\VEN_GDX&DEV_1515&Col06".
std::wstring WithoutInstance(const std::wstring& id) {
  return id.substr(0, id.rfind(L'\\'));
}

/// Wine lists a HID node's instance path before its hardware ids; Windows lists the ids alone.
BOOL WINAPI HardwareIdsWithoutInstance(HDEVINFO list, PSP_DEVINFO_DATA node, DWORD property, PDWORD type, PBYTE buffer,
                                       DWORD size, PDWORD required) {
  const BOOL read = SetupDiGetDeviceRegistryPropertyW(list, node, property, type, buffer, size, required);
  if (!read || property != SPDRP_HARDWAREID || buffer == nullptr) return read;
  auto* const ids = reinterpret_cast<wchar_t*>(buffer);
  const std::wstring first = ids;
  const wchar_t* const second = ids + first.size() + 1;
  if (first.rfind(std::wstring(second) + L"\\", 0) != 0) return read;
  const std::size_t dropped = (first.size() + 1) * sizeof(wchar_t);
  std::memmove(buffer, buffer + dropped, size - dropped);
  return read;
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
  const std::wstring id = FirstHardwareId(list, node);
  const TouchDevice which = id.find(L"&Col05") != std::wstring::npos ? kTouchPad : kTouchScreen;
  const bool enable = wantedState == DICS_ENABLE;
  Report(L"patch " + std::wstring(enable ? L"enable " : L"disable ") + WithoutInstance(id));
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
  return {{{"SetupDiGetDeviceRegistryPropertyW", reinterpret_cast<void*>(HardwareIdsWithoutInstance)},
           {"SetupDiSetClassInstallParamsW", reinterpret_cast<void*>(RememberPropertyChange)},
           {"SetupDiCallClassInstaller", reinterpret_cast<void*>(ChangeByPlug)},
           {"RegisterRawInputDevices", reinterpret_cast<void*>(RegisterPageByUsages)}}};
}

}  // namespace lab::patch

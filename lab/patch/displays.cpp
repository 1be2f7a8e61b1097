// The projection mode. Wine serves the display paths as the X server has them and calls every arrangement "internal":
// here the laptop's state says which it is, and changes when the mode is set. The desktop itself does not. And changes
// of a single display, of which Wine takes those with a size only.
#include <windows.h>

#include <cstdlib>

#include "kit/laptop_state.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

LONG WINAPI QueryWithTopology(UINT32 flags, UINT32* pathCount, DISPLAYCONFIG_PATH_INFO* paths, UINT32* modeCount,
                              DISPLAYCONFIG_MODE_INFO* modes, DISPLAYCONFIG_TOPOLOGY_ID* topology) {
  const LONG status = QueryDisplayConfig(flags, pathCount, paths, modeCount, modes, topology);
  if (status == ERROR_SUCCESS && topology != nullptr) {
    *topology = static_cast<DISPLAYCONFIG_TOPOLOGY_ID>(SharedLaptopState()->topology);
  }
  return status;
}

/// Wine succeeds without effect. A supplied configuration is left to it.
LONG WINAPI SetTopology(UINT32 pathCount, DISPLAYCONFIG_PATH_INFO* paths, UINT32 modeCount,
                        DISPLAYCONFIG_MODE_INFO* modes, UINT32 flags) {
  constexpr UINT32 kTopologies =
      SDC_TOPOLOGY_INTERNAL | SDC_TOPOLOGY_CLONE | SDC_TOPOLOGY_EXTEND | SDC_TOPOLOGY_EXTERNAL;
  Report(L"patch SetDisplayConfig with " + std::to_wstring(pathCount) + L" paths, flags " + std::to_wstring(flags));
  if ((flags & kTopologies) == 0) return SetDisplayConfig(pathCount, paths, modeCount, modes, flags);
  if ((flags & SDC_APPLY) != 0) SharedLaptopState()->topology = flags & kTopologies;
  return ERROR_SUCCESS;
}

/// The major version of the Wine that this is.
int WineVersion() {
  const auto version = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version");
  return std::atoi(reinterpret_cast<const char* (*)()>(reinterpret_cast<void*>(version))());
}

/// Wine 8 keeps each process's own view of the current settings, and renews it only for changes of that process's; what
/// is stored is everybody's, and the same unless a display was changed from outside of Wine.
BOOL WINAPI EveryonesSettings(LPCWSTR device, DWORD which, DEVMODEW* mode) {
  static const bool ownView = WineVersion() < 10;
  return EnumDisplaySettingsW(device, ownView && which == ENUM_CURRENT_SETTINGS ? ENUM_REGISTRY_SETTINGS : which, mode);
}

/// Wine accepts a change without a size and makes none; one without an orientation it turns.
LONG WINAPI ChangeWithSize(LPCWSTR device, DEVMODEW* mode, HWND window, DWORD flags, LPVOID parameter) {
  DEVMODEW sized = *mode, current{};
  current.dmSize = sizeof current;
  if (!EveryonesSettings(device, ENUM_CURRENT_SETTINGS, &current)) return DISP_CHANGE_BADPARAM;
  constexpr DWORD kSize = DM_PELSWIDTH | DM_PELSHEIGHT;
  if ((sized.dmFields & kSize) != kSize) {
    sized.dmPelsWidth = current.dmPelsWidth;
    sized.dmPelsHeight = current.dmPelsHeight;
  }
  if ((sized.dmFields & DM_DISPLAYORIENTATION) == 0) sized.dmDisplayOrientation = current.dmDisplayOrientation;
  sized.dmFields |= kSize | DM_DISPLAYORIENTATION;
  return ChangeDisplaySettingsExW(device, &sized, window, flags, parameter);
}

}  // namespace

std::array<Redirection, 4> DisplayCalls() {
  return {{{"QueryDisplayConfig", reinterpret_cast<void*>(QueryWithTopology)},
           {"SetDisplayConfig", reinterpret_cast<void*>(SetTopology)},
           {"EnumDisplaySettingsW", reinterpret_cast<void*>(EveryonesSettings)},
           {"ChangeDisplaySettingsExW", reinterpret_cast<void*>(ChangeWithSize)}}};
}

}  // namespace lab::patch

// The projection mode. Wine serves the display paths as the X server has them and calls every arrangement "internal":
// here the laptop's state says which it is, and changes when the mode is set. The desktop itself does not.
#include <windows.h>

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

}  // namespace

std::array<Redirection, 2> DisplayCalls() {
  return {{{"QueryDisplayConfig", reinterpret_cast<void*>(QueryWithTopology)},
           {"SetDisplayConfig", reinterpret_cast<void*>(SetTopology)}}};
}

}  // namespace lab::patch

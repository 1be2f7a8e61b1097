// The projection mode. Wine serves the display paths as the X server has them and calls every arrangement "internal":
// here the laptop's state says which it is.
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

}  // namespace

std::array<Redirection, 1> DisplayCalls() {
  return {{{"QueryDisplayConfig", reinterpret_cast<void*>(QueryWithTopology)}}};
}

}  // namespace lab::patch

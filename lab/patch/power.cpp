// The power source. Wine tells that of the machine the lab runs on: here it is the laptop's.
#include <windows.h>

#include "kit/laptop_state.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

BOOL WINAPI LaptopPowerStatus(LPSYSTEM_POWER_STATUS status) {
  constexpr BYTE kHalfFull = 50;
  const LaptopState& laptop = *SharedLaptopState();
  *status = {};
  status->ACLineStatus = static_cast<BYTE>(laptop.onMains);
  status->BatteryFlag = 0;
  status->BatteryLifePercent = kHalfFull;
  status->Reserved1 = static_cast<BYTE>(laptop.batterySaver);  // SystemStatusFlag in newer headers
  status->BatteryLifeTime = MAXDWORD;
  status->BatteryFullLifeTime = MAXDWORD;
  return TRUE;
}

}  // namespace

std::array<Redirection, 1> PowerCalls() {
  return {{{"GetSystemPowerStatus", reinterpret_cast<void*>(LaptopPowerStatus)}}};
}

}  // namespace lab::patch

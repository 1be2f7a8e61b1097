#include "os/power.h"

#include "os/win32/win32_support.h"

namespace os {

Result<PowerStatus> QueryPowerStatus() {
  SYSTEM_POWER_STATUS status{};
  if (GetSystemPowerStatus(&status) == FALSE) return win32::LastError();
  return PowerStatus{status.ACLineStatus, status.Reserved1};  // published today as SystemStatusFlag
}

}  // namespace os

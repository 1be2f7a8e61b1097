#include "os/power.h"
#include "os/services.h"
#include "sim/laptop.h"

namespace os {

using sim::Machine;

Result<PowerStatus> QueryPowerStatus() {
  const auto call = sim::Enter<&QueryPowerStatus>();
  if (call.failed()) return Error{call.error()};
  return Machine().power.Status();
}

std::optional<std::uint32_t> ServiceState(const wchar_t* name) {
  if (sim::Enter<&ServiceState>().failed()) return std::nullopt;
  return Machine().services.State(name);
}

}  // namespace os

#include "os/power.h"
#include "os/services.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

Result<PowerStatus> QueryPowerStatus() {
  if (const auto call = sim::Enter<&QueryPowerStatus>(); call.failed()) return Error{call.error()};
  return Machine().power.Status();
}

Result<PowerScheme> ActivePowerScheme() {
  if (const auto call = sim::Enter<&ActivePowerScheme>(); call.failed()) return Error{call.error()};
  return PowerScheme{0x22, 0x42, 0x1B, 0x38};  // the beginning of the balanced scheme's id
}

Result<std::uint32_t> LidCloseActionOf(const PowerScheme& /*scheme*/, bool onMains) {
  if (const auto call = sim::Enter<&LidCloseActionOf>(); call.failed()) return Error{call.error()};
  return Machine().power.LidActionOf(onMains);
}

std::optional<std::uint32_t> ServiceState(const wchar_t* name) {
  if (sim::Enter<&ServiceState>().failed()) return std::nullopt;
  return Machine().services.State(name);
}

}  // namespace os

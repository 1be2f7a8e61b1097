#pragma once

#include <cstdint>

#include "os/types.h"

namespace tessaview {

/// True for a touch report that says that the finger went up: report 1 with flag bit 0 clear, or report 17 with flag
/// bit 1 clear. Byte 0 of a report is its id, byte 1 its flags; a shorter report is no lift.
[[nodiscard]] bool IsLift(os::BytesView report);

/// What happens to one touch report.
struct ThinningStep {
  bool forward;
  std::uint32_t nextCounter;
};

/// Thins a stream of touch reports to every third, and every lift: `counter` is 0 at the beginning, then what the step
/// before said.
[[nodiscard]] ThinningStep ThinReports(std::uint32_t counter, os::BytesView report);

}  // namespace tessaview

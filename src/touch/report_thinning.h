#pragma once

#include <cstdint>

#include "os/types.h"

namespace tessaview {

/// What happens to one touch report.
struct ThinningStep {
  bool forward;
  std::uint32_t nextCounter;
};

/// Thins a stream of touch reports to every third, and every lift: `counter` is 0 at the beginning, then what the step
/// before said.
[[nodiscard]] ThinningStep ThinReports(std::uint32_t counter, os::BytesView report);

}  // namespace tessaview

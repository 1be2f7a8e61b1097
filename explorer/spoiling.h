#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "sim/faults.h"

// Which calls of the door fail, are slow, or answer short, in one life.
namespace explorer {

using Plan = decltype(sim::Faults::plan);

/// One call that is not as it should be, by the function's name and how many calls of it there were, with itself.
struct SpoiltCall {
  std::string_view door;
  std::size_t call;
  sim::Spoilt how;
};
using SpoiltCalls = std::vector<SpoiltCall>;

/// Each door function is spoilt in a quarter of the lives, in one way: a quarter of its calls, one alone, or some in a
/// row. What only a start of the controller can set up is spoilt in lives that end with another start.
[[nodiscard]] Plan DrawnPlan(std::uint32_t seed, bool startsAgain);
[[nodiscard]] Plan ListedPlan(const SpoiltCalls& calls);

/// The same plan, which notes what it spoils.
[[nodiscard]] Plan Noted(Plan plan, SpoiltCalls& spoilt);

}  // namespace explorer

#include "sim/faults.h"

namespace sim {

void Faults::ClearAll() {
  for (auto& [function, behaviour] : behaviours_) behaviour = Behaviour{.calls = behaviour.calls};
}

std::uint32_t Faults::Door::Begin(const DoorKey& function) {
  auto& behaviour = at(function);
  ++behaviour.calls;
  return behaviour.delayMs;
}

DoorCall Faults::Door::Outcome(const DoorKey& function) {
  auto& [calls, failure, delayMs, longestAnswer] = at(function);
  if (!failure) return {std::nullopt, longestAnswer};
  if (failure->after > 0) {
    --failure->after;
    return {std::nullopt, longestAnswer};
  }
  const auto error = failure->error;
  if (failure->times && --*failure->times == 0) failure.reset();
  return {error, longestAnswer};
}

}  // namespace sim

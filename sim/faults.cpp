#include "sim/faults.h"

namespace sim {
namespace {

std::vector<const DoorKey*>& Doors() {
  static std::vector<const DoorKey*> doors;
  return doors;
}

/// Whether it is this call's turn to fail.
bool IsDue(std::optional<Failure>& failure) {
  if (!failure) return false;
  if (failure->after == 0) return true;
  --failure->after;
  return false;
}

}  // namespace

const std::vector<const DoorKey*>& AllDoors() {
  return Doors();
}

const DoorKey& AddDoor(const DoorKey& function) {
  Doors().push_back(&function);
  return function;
}

void Faults::ClearAll() {
  plan = nullptr;
  for (auto& [function, behaviour] : behaviours_) {
    behaviour = Behaviour{.calls = behaviour.calls, .failures = behaviour.failures};
  }
}

Faults::Tally Faults::TallyOf(const DoorKey& function) const {
  const auto found = behaviours_.find(&function);
  return found == behaviours_.end() ? Tally{} : Tally{found->second.calls, found->second.failures};
}

Spoilt Faults::Door::Begin(const DoorKey& function) {
  auto& [calls, failures, failure, delayMs, longestAnswer] = at(function);
  ++allCalls_, ++calls;
  auto spoilt = plan ? plan(function, calls) : Spoilt{};
  if (!spoilt.error && IsDue(failure)) {
    spoilt.error = failure->error;
    if (failure->times && --*failure->times == 0) failure.reset();
  }
  if (spoilt.delayMs == 0) spoilt.delayMs = delayMs;
  if (!spoilt.longestAnswer) spoilt.longestAnswer = longestAnswer;
  if (spoilt.error) ++failures;
  return spoilt;
}

}  // namespace sim

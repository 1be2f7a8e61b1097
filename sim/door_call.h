#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "os/waiting.h"

namespace sim {

/// Stands for one door function: its address is the function's identity.
struct DoorKey {
  os::WaitingMark waiting;
  std::string_view signature;  // the compiler's words, with the function's name in them
};
template <auto Function>
consteval std::string_view SignatureOf() {
  return __PRETTY_FUNCTION__;
}
template <auto Function>
inline constexpr DoorKey kDoorKey{os::kWaiting<Function>, SignatureOf<Function>()};

/// What the test arranged for one call of a door function.
class DoorCall {
 public:
  DoorCall() = default;
  DoorCall(std::optional<std::uint32_t> error, std::optional<std::size_t> longestAnswer)
      : error_(error), longestAnswer_(longestAnswer) {}

  /// The call shall fail, with the system error code `error`.
  [[nodiscard]] bool failed() const { return error_.has_value(); }
  [[nodiscard]] std::uint32_t error() const { return error_.value_or(0); }

  /// The length of an answer that has `full` bytes or elements: full, unless the test asked for a shorter one.
  [[nodiscard]] std::size_t Shortened(std::size_t full) const { return std::min(full, longestAnswer_.value_or(full)); }

 private:
  std::optional<std::uint32_t> error_;
  std::optional<std::size_t> longestAnswer_;
};

/// The first step of every door function that may block or fail: unwinds the thread when the laptop is being switched
/// off, hands over what waits when the function lets it through, takes the time the test asked for, counts the call and
/// looks up its fault. A call that waits for another program while the thread holds a lock ends the test. Not for the
/// closing functions, which must not throw.
DoorCall EnterDoor(const DoorKey& function);

template <auto Function>
DoorCall Enter() {
  return EnterDoor(kDoorKey<Function>);
}

}  // namespace sim

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "os/waiting.h"

namespace sim {

/// Stands for one door function: its address is the function's identity.
struct DoorKey {
  os::WaitingMark waiting;
  std::string_view name;  // "os::Control"
};

/// The name as it stands in the compiler's words.
template <auto Function>
consteval std::string_view NameOf() {
  const std::string_view words = __PRETTY_FUNCTION__;
  const auto name = words.substr(words.find("os::", words.find("Function = ")));
  return name.substr(0, name.find_first_of("];)("));
}

template <auto Function>
inline constexpr DoorKey kDoorKey{os::kWaiting<Function>, NameOf<Function>()};

/// Every door function there is.
[[nodiscard]] const std::vector<const DoorKey*>& AllDoors();
const DoorKey& AddDoor(const DoorKey& function);

template <auto Function>
inline const DoorKey& kDoor = AddDoor(kDoorKey<Function>);

/// What was arranged for one call of a door function.
struct Spoilt {
  std::optional<std::uint32_t> error = {};        // it fails, with this system error code
  std::uint32_t delayMs = 0;                      // it takes so long before it does its work
  std::optional<std::size_t> longestAnswer = {};  // its answer has no more bytes or elements
};

/// What a door function has to heed of that.
class DoorCall {
 public:
  DoorCall() = default;
  explicit DoorCall(const Spoilt& spoilt) : spoilt_(spoilt) {}

  /// The call shall fail, with the system error code `error`.
  [[nodiscard]] bool failed() const { return spoilt_.error.has_value(); }
  [[nodiscard]] std::uint32_t error() const { return spoilt_.error.value_or(0); }

  /// The length of an answer that has `full` bytes or elements: full, unless the test asked for a shorter one.
  [[nodiscard]] std::size_t Shortened(std::size_t full) const {
    return std::min(full, spoilt_.longestAnswer.value_or(full));
  }

 private:
  Spoilt spoilt_;
};

/// The first step of every door function that may block or fail: unwinds the thread when the laptop is being switched
/// off, hands over what waits when the function lets it through, takes the time the test asked for, counts the call and
/// looks up its fault. A call that waits for another program while the thread holds a lock ends the test. Not for the
/// closing functions, which must not throw.
DoorCall EnterDoor(const DoorKey& function);

template <auto Function>
DoorCall Enter() {
  return EnterDoor(kDoor<Function>);
}

}  // namespace sim

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>

#include "sim/door_call.h"

namespace sim {

/// How a door function is to fail.
struct Failure {
  std::uint32_t error = 31;                 // the system error code; 31 = ERROR_GEN_FAILURE
  std::optional<std::uint32_t> times = {};  // how many calls fail; without a number all of them
  std::uint32_t after = 0;                  // how many calls succeed before the first failure
};

/// What a test asked of single door functions: to fail, to be slow, to answer short. Counts every call on the way.
///
///     laptop.faults.Fail<&os::Control>({.error = 5, .times = 2});
class Faults {
 public:
  template <auto Function>
  void Fail(Failure failure = {}) {
    at(kDoorKey<Function>).failure = failure;
  }

  /// Every call takes `ms` of virtual time before it does its work.
  template <auto Function>
  void Slow(std::uint32_t ms) {
    at(kDoorKey<Function>).delayMs = ms;
  }

  /// Answers carry at most `size` bytes or elements.
  template <auto Function>
  void Short(std::size_t size) {
    at(kDoorKey<Function>).longestAnswer = size;
  }

  /// All functions work again; their counts stay.
  void ClearAll();

  /// How often the function was called since the laptop was made.
  template <auto Function>
  [[nodiscard]] std::size_t Calls() {
    return at(kDoorKey<Function>).calls;
  }

  class Door;

 private:
  struct Behaviour {
    std::size_t calls = 0;
    std::optional<Failure> failure = {};
    std::uint32_t delayMs = 0;
    std::optional<std::size_t> longestAnswer = {};
  };
  Behaviour& at(const DoorKey& function) { return behaviours_[&function]; }

  std::map<const DoorKey*, Behaviour> behaviours_;
};

class Faults::Door : public Faults {
 public:
  /// How long this call takes before it does its work, in milliseconds; counts it.
  std::uint32_t Begin(const DoorKey& function);

  /// Whether and how this call fails.
  DoorCall Outcome(const DoorKey& function);
};

}  // namespace sim

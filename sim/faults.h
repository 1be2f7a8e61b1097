#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
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

  /// Asked at each call, with how many there were of the function, this one among them. Where it arranges nothing, what
  /// was asked of the function holds.
  std::function<Spoilt(const DoorKey& function, std::size_t call)> plan = {};

  /// All functions work again; their counts stay.
  void ClearAll();

  /// How often the function was called since the laptop was made.
  template <auto Function>
  [[nodiscard]] std::size_t Calls() {
    return at(kDoorKey<Function>).calls;
  }

  /// How often a function was called, and failed because it was told to.
  struct Tally {
    std::size_t calls = 0, failures = 0;
  };
  [[nodiscard]] Tally TallyOf(const DoorKey& function) const;
  [[nodiscard]] std::size_t AllCalls() const { return allCalls_; }

  class Door;

 private:
  struct Behaviour {
    std::size_t calls = 0, failures = 0;
    std::optional<Failure> failure = {};
    std::uint32_t delayMs = 0;
    std::optional<std::size_t> longestAnswer = {};
  };
  Behaviour& at(const DoorKey& function) { return behaviours_[&function]; }

  std::size_t allCalls_ = 0;
  std::map<const DoorKey*, Behaviour> behaviours_;
};

class Faults::Door : public Faults {
 public:
  /// Counts a call, and says what is arranged for it.
  Spoilt Begin(const DoorKey& function);
};

}  // namespace sim

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "explorer/life.h"
#include "explorer/spoiling.h"
#include "explorer/stimuli.h"

// One life: everything that is random about it is drawn before it begins.
namespace explorer {

inline constexpr std::uint32_t kLongestStartMs = 20'000;  // it may wait for the touch pad or the desktop
inline constexpr int kUntilQuiet = -1;                    // a pause until all of the controller waits

/// Something that happens, its numbers, and how long it takes until the next thing does, in milliseconds.
struct Step {
  const Stimulus* what;
  std::array<int, 3> numbers;
  int pauseMs;
};

struct Story {
  Beginning beginning;
  std::uint32_t spoiling = 0;              // what draws the spoilt calls; 0 spoils none
  std::optional<SpoiltCalls> spoilt = {};  // in place of drawn ones
  std::vector<Step> steps;
  bool startsAgain = false;  // the controller, before all comes to rest
  int last = 0;              // what the user does last
};

[[nodiscard]] Story Draw(std::uint32_t seed, std::size_t steps);

/// The story as a test has it.
[[nodiscard]] std::string Tell(const Story& story);

}  // namespace explorer

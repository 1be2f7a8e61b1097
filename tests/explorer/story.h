#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/explorer/life.h"
#include "tests/explorer/spoiling.h"
#include "tests/explorer/stimuli.h"

// One life: everything that is random about it is drawn before it begins.
namespace explorer {

inline constexpr int kUntilQuiet = -1;  // a pause until all of the controller waits

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

/// What did not hold, the first one first; and which calls were spoilt.
struct Outcome {
  std::vector<std::string> broken;
  SpoiltCalls spoilt;
};
[[nodiscard]] Outcome Play(const Story& story);

/// The story as a test has it.
[[nodiscard]] std::string Tell(const Story& story);

}  // namespace explorer

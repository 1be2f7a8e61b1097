#pragma once

#include <array>
#include <span>

#include "explorer/life.h"

// All that can happen to a laptop.
namespace explorer {

/// One kind of thing that happens: how often it does against the others, from 0 to what (exclusive) its numbers a, b
/// and c go, and what it is: as words, and to be done.
struct Stimulus {
  unsigned weight;
  std::array<int, 3> upTo;
  const char* words;
  void (*happen)(Life& laptop, int a, int b, int c);
};

[[nodiscard]] std::span<const Stimulus> Stimuli();

}  // namespace explorer

#include "tests/support.h"

// What the laptop's parts do the contract tests show, and how its time passes and ends every story.

namespace {

using Names = std::vector<std::string>;

/// The order in which four threads come to their turns.
Names OrderOfRun(std::uint32_t seed) {
  Names heard;
  sim::Laptop laptop({.seed = seed, .interleaving = true});
  for (const auto* name : {"a", "b", "c", "d"}) {
    os::StartThread(L"noter", [&heard, name] {
      for (int round = 0; round < 5; ++round) {
        os::Sleep(10);
        heard.emplace_back(name);
      }
    });
  }
  laptop.Settle();
  return heard;
}

TEST(SimulatedLaptop, OneSeedIsOneRun) {
  const auto first = OrderOfRun(7);
  EXPECT_EQ(first.size(), 20U);
  EXPECT_EQ(OrderOfRun(7), first);
  EXPECT_NE(OrderOfRun(8), first);
}

}  // namespace

// A laptop's random life: whatever happens at whatever moment, what is promised holds. One seed is one life.
//
//   EXPLORER_SEEDS=10000 EXPLORER_STEPS=1000 explorer_tests   so many lives, each of so many things that happen
//   EXPLORER_SEED=4711 explorer_tests                         one of them; when it fails, its shortest story is told

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/explorer/shrink.h"

namespace {

using namespace explorer;

constexpr unsigned kShares = 4;  // tests of one share each run in parallel

unsigned FromEnvironment(const char* name, unsigned otherwise) {
  const char* const text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

unsigned Steps() {
  return FromEnvironment("EXPLORER_STEPS", 60);
}

volatile std::sig_atomic_t gSeed = 0;  // of the life under way

/// A life that ends the test's process says which it was.
void TellSeed(int signal) {
  std::fprintf(stderr, "replay: EXPLORER_SEED=%d EXPLORER_STEPS=%u\n", static_cast<int>(gSeed), Steps());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void FailWithStory(unsigned seed, const std::string& broken) {
  const auto story = Shrink(Draw(seed, Steps()));
  ADD_FAILURE() << broken << "; replay: EXPLORER_SEED=" << seed << " EXPLORER_STEPS=" << Steps() << "\n"
                << "TEST(ExplorerStories, Seed" << seed << ") {\n"
                << Tell(story) << "}\n";
}

using Explorer = testing::TestWithParam<unsigned>;

TEST_P(Explorer, WhateverHappensWhatIsPromisedHolds) {
  std::signal(SIGABRT, TellSeed);
  if (const auto seed = FromEnvironment("EXPLORER_SEED", 0); seed != 0) {
    if (seed % kShares != GetParam()) GTEST_SKIP();
    if (const auto broken = PlayApart(Draw(seed, Steps())); !broken.empty()) FailWithStory(seed, broken);
    return;
  }
  const auto seeds = FromEnvironment("EXPLORER_SEEDS", 60);
  for (auto seed = GetParam() == 0 ? kShares : GetParam(); seed <= seeds && !HasFailure(); seed += kShares) {
    gSeed = static_cast<int>(seed);
    if (const auto broken = Play(Draw(seed, Steps())).broken; !broken.empty()) FailWithStory(seed, broken.front());
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Explorer, testing::Range(0U, kShares));

}  // namespace

// A laptop's random life: whatever happens at whatever moment, what is promised holds. One seed is one life.
//
//   EXPLORER_SEEDS=10000 EXPLORER_STEPS=1000 explorer_tests   so many lives, each of so many things that happen
//   EXPLORER_SHRINK=0 explorer_tests                          leaves what fails as long as it is
//   EXPLORER_REACH=1 explorer_tests                           tells what the lives have come to
//   EXPLORER_SEED=4711 explorer_tests                         one of them; when it fails, its shortest story is told

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "explorer/child_process.h"
#include "explorer/play.h"
#include "explorer/processor.h"
#include "explorer/reach.h"
#include "explorer/shrink.h"
#include "tests/explorer/promises.h"

namespace {

using namespace explorer;

constexpr unsigned kShares = 4;  // tests of one share each run in parallel
constexpr unsigned kLongestSeconds = 120;

unsigned FromEnvironment(const char* name, unsigned otherwise) {
  const char* const text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

unsigned Steps() {
  return FromEnvironment("EXPLORER_STEPS", 60);
}

struct Outcome {
  Broken broken;
  SpoiltCalls spoilt;
};

Reach gReach;

Outcome PlayWatched(const Story& story) {
  Outcome outcome;
  Watcher watcher;
  const auto watch = [&](const Life& laptop) { return (outcome.broken = watcher.Look(laptop)).empty(); };
  outcome.spoilt = Play(story, {.afterStep = watch, .atRest = [&](Life& laptop) {
                                  outcome.broken = LookAtRest(laptop);
                                  gReach.Note(laptop);
                                }});
  for (const auto& step : story.steps) gReach.Note(*step.what);
  return outcome;
}

std::string FirstBroken(const Story& story) {
  const auto broken = PlayWatched(story).broken;
  return broken.empty() ? std::string() : broken.front();
}

std::string FirstBrokenApart(const Story& story) {
  return InChildProcess(kLongestSeconds, [&story] { return FirstBroken(story); });
}

void FailWithStory(unsigned seed, const std::string& broken) {
  if (FromEnvironment("EXPLORER_SHRINK", 1) == 0) {
    ADD_FAILURE() << broken << "; replay: EXPLORER_SEED=" << seed << " EXPLORER_STEPS=" << Steps();
    return;
  }
  const auto story =
      Shrink(Draw(seed, Steps()), FirstBrokenApart, [](const Story& each) { return PlayWatched(each).spoilt; });
  ADD_FAILURE() << broken << "; replay: EXPLORER_SEED=" << seed << " EXPLORER_STEPS=" << Steps() << "\n" << Tell(story);
}

volatile std::sig_atomic_t gSeed = 0;  // of the life under way

/// A life that ends the test's process says which it was.
void TellSeed(int signal) {
  std::fprintf(stderr, "replay: EXPLORER_SEED=%d EXPLORER_STEPS=%u\n", static_cast<int>(gSeed), Steps());
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

using Explorer = testing::TestWithParam<unsigned>;

TEST_P(Explorer, WhateverHappensWhatIsPromisedHolds) {
  std::signal(SIGABRT, TellSeed);
  StayOnProcessor(GetParam());
  const auto single = FromEnvironment("EXPLORER_SEED", 0), last = FromEnvironment("EXPLORER_SEEDS", 24);
  for (auto seed = GetParam() + 1; seed <= std::max(single, last) && !HasFailure(); seed += kShares) {
    if (single != 0 && seed != single) continue;
    gSeed = static_cast<int>(seed);
    const auto story = Draw(seed, Steps());
    const auto broken = single != 0 ? FirstBrokenApart(story) : FirstBroken(story);
    if (!broken.empty()) FailWithStory(seed, broken);
  }
}

struct TellReach : testing::Environment {
  void TearDown() override {
    if (std::getenv("EXPLORER_REACH") != nullptr) gReach.Tell(std::cout);
  }
};
[[maybe_unused]] const auto* const kTellReach = testing::AddGlobalTestEnvironment(new TellReach);

INSTANTIATE_TEST_SUITE_P(Seeds, Explorer, testing::Range(0U, kShares));

}  // namespace

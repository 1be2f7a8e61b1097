#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "sim/laptop.h"

// One runner for whatever is played from many seeds. One seed is one run, and a failure names its seed.
namespace support {

/// The seeds from 1 on, played in shares, one for each test of a suite: so they run in parallel. The environment says
/// how many seeds there are (NAME_SEEDS), and may choose a single one (NAME_SEED).
struct Seeds {
  static constexpr unsigned kShares = 4;

  const char* name;  // in capitals
  unsigned count;    // unless the environment says otherwise

  /// Plays one share, up to the first seed that fails.
  template <class Play>
  void PlayShare(unsigned share, Play play) const {
    const auto single = Number("_SEED", 0), last = Number("_SEEDS", count);
    for (unsigned seed = share + 1; seed <= last && !testing::Test::HasFailure(); seed += kShares) {
      if (single != 0 && seed != single) continue;
      SCOPED_TRACE(testing::Message() << "replay: " << name << "_SEEDS=" << seed << " " << name << "_SEED=" << seed);
      play(seed);
    }
  }

 private:
  [[nodiscard]] unsigned Number(const char* suffix, unsigned otherwise) const {
    const char* const text = std::getenv((name + std::string(suffix)).c_str());
    return text == nullptr ? otherwise : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
  }
};

/// In a share of the seeds each, the UI asks back inside its handlers and takes its time in them, and hooks die early.
inline void BeUnkind(sim::Laptop& laptop, unsigned seed) {
  if (seed % 3 == 0) {
    laptop.ui.whenTold = [&laptop](const std::wstring& text) {
      if (text != L"BLSET") laptop.ui.AskBack(L"BLGET");
    };
  }
  if (seed % 4 == 1) laptop.ui.HandleFor(seed % 300);
  for (auto* const hook : {&laptop.mouseHook, &laptop.keyboardHook}) {
    if (seed % 5 == 2) hook->diesAtOverrun = 1;
    hook->diesAtResume = hook->diesAtUnlock = seed % 5 == 3;
  }
}

/// A suite of seeds: one test for each share.
using SeedsTest = testing::TestWithParam<unsigned>;
inline auto EachShare() {
  return testing::Range(0U, Seeds::kShares);
}

}  // namespace support

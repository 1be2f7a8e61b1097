// The arithmetic of the backlight: percentages of the UI, levels of the firmware.

#include "power/backlight.h"

#include <gtest/gtest.h>

namespace {

TEST(Backlight, PercentagesAndLevelsAreTruncated) {
  using Pairs = std::vector<std::pair<std::int32_t, std::int32_t>>;
  for (const auto& [percentage, level] :
       Pairs{{0, 0}, {1, 2}, {39, 99}, {99, 252}, {100, 255}, {-1, -2}, {2'000'000'000, 2'147'483'647}}) {
    EXPECT_EQ(tessaview::LevelFromPercentage(percentage), level) << percentage;
  }
  for (const auto& [level, percentage] : Pairs{{0, 0}, {2, 0}, {3, 1}, {58, 22}, {127, 49}, {254, 99}, {255, 99}}) {
    EXPECT_EQ(tessaview::PercentageFromLevel(static_cast<std::uint32_t>(level)), percentage) << level;
  }
}

TEST(Backlight, OnBatteryIsCappedOnlyWhileSaverIsOnAndAllowed) {
  struct Case {
    std::uint32_t stored, allowed, saverOn, applied;
  };
  for (const auto& c : {Case{255, 1, 1, 58},
                        {59, 1, 1, 58},
                        {57, 1, 1, 57},
                        {9, 1, 1, 10},
                        {255, 0, 1, 255},
                        {255, 1, 0, 255},
                        {0, 0, 0, 10},
                        {255, 2, 1, 255}}) {
    const tessaview::Settings settings{
        .batterySaverOn = c.saverOn, .PowerSaving = c.allowed, .UserBacklightValueDC = c.stored};
    EXPECT_EQ(tessaview::BatteryLevel(settings), c.applied) << c.stored << c.allowed << c.saverOn;
  }
}

}  // namespace

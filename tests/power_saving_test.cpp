// The backlight follows the power source and the battery saver, while the panel is ready for it.

#include "power/power_saving.h"

#include "tests/support.h"

namespace {

using namespace support;
using os::PowerSetting;
using Step = void (*)(sim::Power&);

constexpr Step kUnplug = [](sim::Power&power) { power.Unplug(); }, kPlug = [](sim::Power&power) { power.Plug(); };
constexpr Step kSaverOn = [](sim::Power&power) { power.BatterySaver(true); },
               kSaverOff = [](sim::Power&power) { power.BatterySaver(false); };
constexpr Step kSaySaverOff = [](sim::Power&power) { power.Notify(PowerSetting::PowerSavingStatus, 0); },
               kSaySource2 = [](sim::Power&power) { power.Notify(PowerSetting::AcDcPowerSource, 2); };

// What counts is the level written by the last step.
struct Transition {
  const char* story;
  std::vector<Step> before = {};
  Step step;
  Words written = {};
  bool allowed = true;
};

const Transition kTransitions[] = {
    {.story = "unplugged", .step = kUnplug, .written = {150}},
    {.story = "unplugged while saver is on", .before = {kSaverOn}, .step = kUnplug, .written = {58}},
    {.story = "dimming forbidden", .before = {kSaverOn}, .step = kUnplug, .written = {150}, .allowed = false},
    {.story = "saver begins on battery", .before = {kUnplug}, .step = kSaverOn, .written = {58}},
    {.story = "saver begins on mains", .step = kSaverOn},
    {.story = "saver ends on battery", .before = {kUnplug, kSaverOn}, .step = kSaverOff, .written = {150}},
    {.story = "saver ends on mains", .before = {kSaverOn}, .step = kSaverOff, .written = {200}},
    {.story = "said to end while on", .before = {kUnplug, kSaverOn}, .step = kSaySaverOff, .written = {200}},
    {.story = "plugged in", .before = {kUnplug}, .step = kPlug, .written = {200}},
    {.story = "plugged in while saver is on", .before = {kUnplug, kSaverOn}, .step = kPlug, .written = {200}},
    {.story = "beyond mains and battery", .before = {kUnplug}, .step = kSaySource2},
};

TEST(PowerSaving, EveryTransitionAppliesItsLevelAndNoneBelowTen) {
  for (const auto& t : kTransitions) {
    for (const bool dark : {false, true}) {
      RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .powerSaving = t.allowed});
      for (const auto source : {kUnplug, kPlug}) {
        source(laptop.power);
        if (dark) laptop.ui.Send(L"BLSET", {.percent = 0});
      }
      for (const auto step : t.before) step(laptop.power);
      ForgetTheStory(laptop);
      t.step(laptop.power);
      EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), dark ? Words(t.written.size(), 10) : t.written)
          << t.story;
    }
  }
}

TEST(PowerSaving, HappensOnlyWhereThePanelIsReadyAndTheSystemCanTell) {
  constexpr std::uint32_t kReady = Firmware::kPanelOn;
  for (const std::uint32_t status : {Firmware::kPanelOff, kReady | 1, kReady | 1U << 24, 0U, kReady}) {
    RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
    laptop.firmware.SetRegister(Firmware::kPower, status);
    if (status == kReady) laptop.faults.Fail<&os::QueryPowerStatus>();
    laptop.power.Unplug();
    laptop.faults.ClearAll();
    if (status == kReady) laptop.power.SourceUnknown();
    laptop.power.BatterySaver(true);
    laptop.power.BatterySaver(false);
    EXPECT_FALSE(tessaview::CheckCurrentMode());
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
  }
}

}  // namespace

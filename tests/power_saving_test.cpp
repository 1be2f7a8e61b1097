// The backlight follows the power source and the battery saver, while the panel is ready for it.

#include "power/power_saving.h"

#include "os/power.h"
#include "tests/support.h"

namespace {

using namespace support;
using os::PowerSetting;

// The transitions are steps of one story each; what counts is the level written by the last step.
struct Transition {
  const char* story;
  bool allowed;
  void (*before)(sim::Power& power);
  void (*step)(sim::Power& power);
  Words written;
};

constexpr auto Nothing = [](sim::Power&) {};
constexpr auto Unplug = [](sim::Power& power) { power.Unplug(); };
constexpr auto Plug = [](sim::Power& power) { power.Plug(); };
constexpr auto SaverOn = [](sim::Power& power) { power.BatterySaver(true); };
constexpr auto SaverOff = [](sim::Power& power) { power.BatterySaver(false); };
constexpr auto UnplugAndSave = [](sim::Power& power) { power.Unplug(), power.BatterySaver(true); };
template <PowerSetting setting, std::uint32_t value>
void Say(sim::Power& power) {
  power.Notify(setting, value);
}

const Transition kTransitions[] = {
    {"unplugged", true, Nothing, Unplug, {150}},
    {"unplugged while saver is on", true, SaverOn, Unplug, {58}},
    {"unplugged while saver is on, dimming forbidden", false, SaverOn, Unplug, {150}},
    {"saver begins on battery", true, Unplug, SaverOn, {58}},
    {"saver begins on mains", true, Nothing, SaverOn, {}},
    {"saver ends on battery", true, UnplugAndSave, SaverOff, {150}},
    {"saver ends on mains", true, SaverOn, SaverOff, {200}},
    {"saver is said to end on battery while it is on",
     true,
     UnplugAndSave,
     Say<PowerSetting::PowerSavingStatus, 0>,
     {200}},
    {"plugged in", true, Unplug, Plug, {200}},
    {"plugged in while saver is on", true, UnplugAndSave, Plug, {200}},
    {"a saver value beyond on and off", true, UnplugAndSave, Say<PowerSetting::PowerSavingStatus, 7>, {58}},
    {"a source beyond mains and battery", true, Unplug, Say<PowerSetting::AcDcPowerSource, 2>, {}},
};

TEST(PowerSaving, EveryTransitionAppliesItsLevelAndNoneBelowTen) {
  for (const auto& t : kTransitions) {
    for (const bool dark : {false, true}) {
      SCOPED_TRACE(t.story);
      RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .powerSaving = t.allowed});
      for (const auto source : {+Unplug, +Plug}) {
        source(laptop.power);
        if (dark) laptop.ui.Send(L"BLSET", {.percent = 0});
      }
      t.before(laptop.power);
      ForgetTheStory(laptop);
      t.step(laptop.power);
      EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), dark ? Words(t.written.size(), 10) : t.written);
    }
  }
}

TEST(PowerSaving, HappensInTheOneReadyStatusOfThePanelOnly) {
  for (const std::uint32_t status : {0x00010000U, 0x000100A1U, 0x010100A0U, 0U}) {
    SCOPED_TRACE(status);
    RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
    laptop.firmware.SetRegister(Firmware::kPower, status);
    laptop.power.Unplug();
    laptop.power.BatterySaver(true);
    EXPECT_FALSE(tessaview::CheckCurrentMode());
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
    laptop.ui.Send(L"BLSET", {.percent = 100});
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"255") << "mains, which was known last";
  }
}

TEST(PowerSaving, DoesNothingWhenTheSystemCannotTell) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
  laptop.faults.Fail<&os::QueryPowerStatus>({.error = 1168});
  laptop.power.Unplug();
  EXPECT_TRUE(laptop.trace.Contains(L"[PowerSaving] CheckCurrentMode GetLastError = 1168"));

  laptop.faults.ClearAll();
  laptop.power.SourceUnknown();
  laptop.power.BatterySaver(true);
  laptop.power.BatterySaver(false);
  EXPECT_EQ(laptop.trace.Count(L"[PowerSaving] BATTERY_UNKNOWN_STATUS"), 2U);
  EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
}

}  // namespace

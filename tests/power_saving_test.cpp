// The backlight follows the power source and the battery saver, while the panel is ready for it.

#include "power/power_saving.h"

#include <gtest/gtest.h>

#include "os/power.h"
#include "tests/support.h"

namespace {

using os::PowerSetting;
using sim::Firmware;
using support::ForgetTheStory;
using support::LogsInOrder;
using support::RunningLaptop;
using Words = std::vector<std::uint32_t>;

// The transitions are steps of one story each; what counts is the level written by the last step.
struct Transition {
  const char* story;
  bool allowed;
  void (*before)(sim::Power& power);
  void (*step)(sim::Power& power);
  Words written;
};

void Nothing(sim::Power& /*power*/) {}
void Unplug(sim::Power& power) {
  power.Unplug();
}
void Plug(sim::Power& power) {
  power.Plug();
}
void SaverOn(sim::Power& power) {
  power.BatterySaver(true);
}
void SaverOff(sim::Power& power) {
  power.BatterySaver(false);
}
void UnplugAndSave(sim::Power& power) {
  power.Unplug();
  power.BatterySaver(true);
}
void SayThatSaverEnds(sim::Power& power) {
  power.Notify(PowerSetting::PowerSavingStatus, 0);
}

const Transition kTransitions[] = {
    {"unplugged", true, Nothing, Unplug, {150}},
    {"unplugged while saver is on", true, SaverOn, Unplug, {58}},
    {"unplugged while saver is on, dimming forbidden", false, SaverOn, Unplug, {150}},
    {"saver begins on battery", true, Unplug, SaverOn, {58}},
    {"saver begins on battery, dimming forbidden", false, Unplug, SaverOn, {150}},
    {"saver begins on mains", true, Nothing, SaverOn, {}},
    {"saver ends on battery", true, UnplugAndSave, SaverOff, {150}},
    {"saver ends on mains", true, SaverOn, SaverOff, {200}},
    {"saver is said to end on battery while it is on", true, UnplugAndSave, SayThatSaverEnds, {200}},
    {"plugged in", true, Unplug, Plug, {200}},
    {"plugged in while saver is on", true, UnplugAndSave, Plug, {200}},
    {"a saver value beyond on and off",
     true,
     UnplugAndSave,
     [](sim::Power& power) { power.Notify(PowerSetting::PowerSavingStatus, 7); },
     {58}},
    {"a source beyond mains and battery",
     true,
     Unplug,
     [](sim::Power& power) { power.Notify(PowerSetting::AcDcPowerSource, 2); },
     {}},
};

TEST(PowerSaving, EveryTransitionAppliesItsLevel) {
  for (const auto& t : kTransitions) {
    SCOPED_TRACE(t.story);
    RunningLaptop laptop({.backlight = 200, .backlightDC = 150, .powerSaving = t.allowed});
    t.before(laptop.power);
    ForgetTheStory(laptop);
    t.step(laptop.power);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), t.written);
  }
}

TEST(PowerSaving, NeverDrivesThePanelDarkerThanTen) {
  for (const auto& t : kTransitions) {
    if (t.written.empty()) continue;
    SCOPED_TRACE(t.story);
    RunningLaptop laptop({.powerSaving = t.allowed});
    laptop.ui.Send(L"BLSET", {.percent = 0});
    laptop.power.Unplug();
    laptop.ui.Send(L"BLSET", {.percent = 0});
    laptop.power.Plug();
    ASSERT_EQ(laptop.settings.Text(L"Backlight") + laptop.settings.Text(L"BacklightDC"), L"00");
    t.before(laptop.power);
    ForgetTheStory(laptop);
    t.step(laptop.power);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{10});
  }
}

TEST(PowerSaving, HappensInTheOneReadyStatusOfThePanelOnly) {
  for (const std::uint32_t status : {0x00010000U, 0x000100A1U, 0x000100A2U, 0x010100A0U, 0x000000A0U, 0U}) {
    SCOPED_TRACE(status);
    RunningLaptop laptop({.backlight = 200, .backlightDC = 150});
    laptop.firmware.SetRegister(Firmware::kPower, status);
    laptop.power.Unplug();
    laptop.power.BatterySaver(true);
    EXPECT_FALSE(tessaview::CheckCurrentMode());
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{});
    EXPECT_FALSE(laptop.trace.Contains(L"[PowerSaving] ACDCMode = 0 , BatterySaverMode = 0"));

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

TEST(PowerSaving, TellsTheLogWhatItSawAndDid) {
  RunningLaptop laptop({.backlight = 200, .backlightDC = 255});
  laptop.power.BatterySaver(true);
  laptop.trace.Clear();
  laptop.power.Unplug();
  EXPECT_TRUE(LogsInOrder(laptop, {L"The computer is powered by an onboard battery power source. \n",
                                   L"[PowerSaving] UI flag = 1", L"[PowerSaving] ACDCMode = 0 , BatterySaverMode = 1",
                                   L"[EnterPowerSavingMode] BacklightValue = 58, UserBacklightValueDC = 255",
                                   L"[ACPI_ZRV_DEVS] Arg0 = 0x50032, Arg1 = 0x3a"}));
  laptop.trace.Clear();
  laptop.power.BatterySaver(false);
  EXPECT_TRUE(LogsInOrder(laptop, {L"Battery saver is off. \n", L"[PowerSaving] UI flag = 1",
                                   L"[PowerSaving] ACDCMode = 0 , BatterySaverMode = 0",
                                   L"[LeavePowerSavingMode] BacklightValue = 255, UserBacklightValue = 200"}));
  laptop.trace.Clear();
  laptop.power.Plug();
  laptop.power.BatterySaver(true);
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"The computer is powered by an AC power source. \n",
               L"[LeavePowerSavingMode] BacklightValue = 200, UserBacklightValue = 200", L"Battery saver is on. \n"}));
}

}  // namespace

#include <gtest/gtest.h>

#include "core/settings.h"
#include "os/device_io.h"
#include "os/power.h"
#include "os/settings_store.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using sim::Firmware;
using sim::LaptopOptions;
using support::LogsInOrder;
using support::RunningLaptop;
using support::Texts;

// ---- BLSET ----

TEST(BacklightFromTheUi, IsStoredInFirmwareUnits) {
  struct Case {
    std::int32_t percent;
    const wchar_t* stored;
  };
  RunningLaptop laptop;
  for (const auto& [percent, stored] : {Case{0, L"0"}, {4, L"10"}, {50, L"127"}, {100, L"255"}, {-4, L"-10"}}) {
    SCOPED_TRACE(percent);
    support::ForgetTheStory(laptop);
    laptop.ui.Send(L"BLSET", {.percent = percent});
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), stored);
    EXPECT_EQ(std::to_wstring(static_cast<std::int32_t>(gSettings.get().UserBacklightValue)), stored);
    EXPECT_TRUE(laptop.trace.Contains(L"UI set BacklightValue = " + std::to_wstring(percent) + L" (0~100) \n"));
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kBacklight).empty()) << "the UI sets the panel itself";
    EXPECT_TRUE(laptop.ui.Received().empty());
  }
}

TEST(BacklightFromTheUi, IsTheLowHalfOfTheHandleField) {
  RunningLaptop laptop;
  laptop.ui.Send(L"BLSET", {.handle = 0xABCD'0001'0000'0032, .rect = {7, 7, 7, 7}, .point = {8, 8}});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"127");
}

TEST(BacklightFromTheUi, BelongsToThePowerSourceInForce) {
  RunningLaptop laptop({.backlight = 20, .backlightDC = 30});
  laptop.ui.Send(L"BLSET", {.percent = 100});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"255");
  EXPECT_EQ(laptop.settings.Text(L"BacklightDC"), L"30");

  laptop.power.Unplug();
  laptop.ui.Send(L"BLSET", {.percent = 50});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"255");
  EXPECT_EQ(laptop.settings.Text(L"BacklightDC"), L"127");
  EXPECT_EQ(gSettings.get().UserBacklightValue, 255u);
  EXPECT_EQ(gSettings.get().UserBacklightValueDC, 127u);

  laptop.power.Plug();
  laptop.ui.Send(L"BLSET", {.percent = 4});
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"10");
  EXPECT_EQ(laptop.settings.Text(L"BacklightDC"), L"127");
}

// ---- POPBATTERYMESSAGE ----

struct Saving {
  const char* what;
  bool saver = true, wanted = true, onBattery = true;
  std::uint32_t status = 0x000100A0, level = 59;
  bool levelReadable = true, sourceKnown = true, powerReadable = true;
  bool warned = false;
};

class BrightPanel : public testing::TestWithParam<Saving> {};

TEST_P(BrightPanel, IsReportedWhileBatterySaverIsInForce) {
  const auto& c = GetParam();
  RunningLaptop laptop;
  if (!c.wanted) laptop.ui.Send(L"POWERSAVEROFF");
  if (c.onBattery) laptop.power.Unplug();
  if (c.saver) laptop.power.BatterySaver(true);
  laptop.firmware.SetRegister(Firmware::kPower, c.status);
  laptop.firmware.SetRegister(Firmware::kBacklight, c.level);
  if (!c.sourceKnown) laptop.power.SourceUnknown();
  if (!c.powerReadable) laptop.faults.Fail<&os::QueryPowerStatus>();
  if (!c.levelReadable) laptop.faults.Fail<&os::Control>({.after = 1});  // the panel's status can still be read
  support::ForgetTheStory(laptop);

  laptop.ui.Send(L"BLSET", {.percent = 100});
  EXPECT_EQ(laptop.ui.Received(), c.warned ? Texts{L"POPBATTERYMESSAGE"} : Texts{});
  EXPECT_EQ(laptop.trace.Contains(L"Send to UI message : POPBATTERYMESSAGE \n"), c.warned);
  EXPECT_EQ(laptop.settings.Text(c.onBattery ? L"BacklightDC" : L"Backlight"), L"255") << "stored in any case";
}

INSTANTIATE_TEST_SUITE_P(
    , BrightPanel,
    testing::Values(Saving{.what = "Bright", .warned = true}, Saving{.what = "NotBright", .level = 58},
                    Saving{.what = "Brightest", .level = 255, .warned = true},
                    Saving{.what = "OnlyTheLowByteIsTheLevel", .level = 0x0001003A},
                    Saving{.what = "BrightUnderOtherBits", .level = 0x000100FF, .warned = true},
                    Saving{.what = "UnreadableCountsAsBrightest", .level = 10, .levelReadable = false, .warned = true},
                    Saving{.what = "SaverOff", .saver = false}, Saving{.what = "NotWanted", .wanted = false},
                    Saving{.what = "SaverOnMains", .onBattery = false, .warned = true},
                    Saving{.what = "PanelOff", .status = 0x00010000},
                    Saving{.what = "PanelInAnotherStatus", .status = 0x000100A1},
                    Saving{.what = "SourceUnknown", .sourceKnown = false},
                    Saving{.what = "PowerUnreadable", .powerReadable = false}),
    [](const auto& each) { return each.param.what; });

// ---- BLGET ----

TEST(BacklightToTheUi, IsAnsweredInPercent) {
  struct Case {
    std::uint32_t status;
    std::int32_t percent;
  };
  RunningLaptop laptop;
  for (const auto& [status, percent] : {Case{0, 0}, {3, 1}, {116, 45}, {255, 99}, {0x000100FF, 99}, {0xFFFFFF00, 0}}) {
    SCOPED_TRACE(status);
    support::ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kBacklight, status);
    laptop.ui.Send(L"BLGET", {.percent = 77, .rect = {1, 1, 1, 1}, .point = {2, 2}});
    const auto answers = laptop.ui.ReceivedTexts();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].text, L"BLSET");
    EXPECT_EQ(answers[0].Percent(), percent);
    EXPECT_EQ(answers[0].handle, static_cast<std::uint32_t>(percent)) << "the high half stays empty";
    EXPECT_EQ(answers[0].rect, os::Rect{});
    EXPECT_EQ(answers[0].point, os::Point{});
    EXPECT_TRUE(laptop.trace.Contains(L"Send to UI BacklightValue = " + std::to_wstring(percent) + L" (0~100)\n"));
  }
}

TEST(BacklightToTheUi, Is99WhenItCannotBeReadAnd0WhenTheAnswerIsShort) {
  const auto ask = [](RunningLaptop& laptop) {
    laptop.ui.ForgetReceived();
    laptop.ui.Send(L"BLGET");
    const auto answers = laptop.ui.ReceivedTexts();
    return answers.size() == 1 ? answers[0].Percent() : -1;
  };
  RunningLaptop laptop;
  laptop.faults.Fail<&os::Control>();
  EXPECT_EQ(ask(laptop), 99);
  laptop.faults.ClearAll();
  laptop.firmware.replyBytes = 2;
  EXPECT_EQ(ask(laptop), 0);
  laptop.firmware.driverInstalled = false;
  EXPECT_EQ(ask(laptop), 99);
}

// ---- POWERSAVERON, POWERSAVEROFF ----

TEST(PowerSavingFromTheUi, IsStoredAndAppliedEitherWay) {
  RunningLaptop laptop({.backlightDC = 200});
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  struct Case {
    const wchar_t *command, *stored, *line;
    std::uint32_t saving, level;
  };
  for (const auto& c : {Case{L"POWERSAVEROFF", L"0", L"[Power Saving] PWN retrun to user setting \n", 0, 200},
                        Case{L"POWERSAVERON", L"1", L"[Power Saving] UI Battery Saver On \n", 1, 58},
                        Case{L"POWERSAVERON", L"1", L"[Power Saving] UI Battery Saver On \n", 1, 58},
                        Case{L"POWERSAVEROFF", L"0", L"[Power Saving] PWN retrun to user setting \n", 0, 200}}) {
    SCOPED_TRACE(c.command);
    support::ForgetTheStory(laptop);
    laptop.ui.Send(c.command);
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), c.stored);
    EXPECT_EQ(gSettings.get().PowerSaving, c.saving);
    EXPECT_EQ(gPowerSavingEnabled.get(), c.saving == 1);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), std::vector{c.level});
    const auto flag = L"[PowerSaving] UI flag = " + std::to_wstring(c.saving);
    EXPECT_TRUE(LogsInOrder(laptop, {c.line, flag.c_str()}));
    EXPECT_TRUE(laptop.ui.Received().empty());
  }
}

}  // namespace

#include "tests/support.h"

namespace {

using namespace support;

TEST(BacklightFromTheUi, IsStoredInFirmwareUnits) {
  RunningLaptop laptop;
  for (const auto& [percent, stored] :
       {std::pair(0, L"0"), {39, L"99"}, {100, L"255"}, {-4, L"-10"}, {2'000'000'000, L"2147483647"}}) {
    laptop.ui.Send(L"BLSET", {.percent = percent});
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), stored);
  }
  EXPECT_TRUE(laptop.firmware.Writes(Firmware::kBacklight).empty()) << "the UI sets the panel itself";
}

TEST(BrightPanel, IsReportedWhileBatterySaverIsInForce) {
  struct Saving {
    const char* what;
    bool saver = true, onBattery = true;
    std::uint32_t status = Firmware::kPanelOn, level = 59;
    void (*trouble)(Laptop& laptop) = [](Laptop&) {};
    bool warned = false;
  };
  for (const auto& each :
       {Saving{.what = "bright", .warned = true}, Saving{.what = "not bright by the low byte", .level = 0x0001003A},
        Saving{.what = "unreadable, but for the panel's status",
        .level = 10,
        .trouble = [](Laptop& l) { l.faults.Fail<&os::Control>({.after = 1}); },
        .warned = true},
        Saving{.what = "saver off", .saver = false},
        Saving{.what = "not wanted", .trouble = [](Laptop& l) { l.ui.Send(L"POWERSAVEROFF"); }},
        Saving{.what = "on mains", .onBattery = false, .warned = true},
        Saving{.what = "panel in another status", .status = Firmware::kPanelOn | 1}}) {
    RunningLaptop laptop;
    if (each.onBattery) laptop.power.Unplug();
    if (each.saver) laptop.power.BatterySaver(true);
    laptop.firmware.SetRegister(Firmware::kPower, each.status);
    laptop.firmware.SetRegister(Firmware::kBacklight, each.level);
    each.trouble(laptop);
    laptop.ui.Send(L"BLSET", {.percent = 100});
    EXPECT_EQ(laptop.ui.Received(), each.warned ? Texts{L"POPBATTERYMESSAGE"} : Texts{}) << each.what;
    EXPECT_EQ(laptop.settings.Text(each.onBattery ? L"BacklightDC" : L"Backlight"), L"255") << "stored in any case";
  }
}

TEST(BacklightToTheUi, IsAnsweredInPercent) {
  RunningLaptop laptop;
  for (const auto& [status, percent] : {std::pair(2U, 0), {3U, 1}, {254U, 99}, {0x000100FFU, 99}, {0xFFFFFF00U, 0}}) {
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kBacklight, status);
    laptop.ui.Send(L"BLGET", {.percent = 77, .rect = {1, 1, 1, 1}, .point = {2, 2}});
    const auto answers = laptop.ui.ReceivedTexts();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].text, L"BLSET");
    EXPECT_EQ(answers[0].handle, static_cast<std::uint32_t>(percent)) << "the high half stays empty";
  }
}

TEST(PowerSavingFromTheUi, IsStoredAndAppliedEitherWay) {
  RunningLaptop laptop({.backlightDC = 200});
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  for (const bool on : {false, true, true, false}) {
    ForgetTheStory(laptop);
    laptop.ui.Send(on ? L"POWERSAVERON" : L"POWERSAVEROFF");
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), on ? L"1" : L"0");
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{on ? 58U : 200U});
  }
}

}  // namespace

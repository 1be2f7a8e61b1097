#include "tests/support.h"

namespace {

using namespace support;

TEST(BacklightOfTheUi, IsInPercentAndStoredAndReadInFirmwareUnits) {
  RunningLaptop laptop;
  for (const auto& [percent, stored] :
       {std::pair(0, L"0"), {39, L"99"}, {100, L"255"}, {-4, L"-10"}, {2'000'000'000, L"2147483647"}}) {
    laptop.ui.Send(L"BLSET", {.percent = percent});
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), stored);
  }
  EXPECT_TRUE(laptop.firmware.Writes(Firmware::kBacklight).empty()) << "the UI sets the panel itself";
  for (const auto& [status, percent] : {std::pair(2U, 0U), {3U, 1U}, {254U, 99U}, {0x000100FFU, 99U}, {~0xFFU, 0U}}) {
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kBacklight, status);
    laptop.ui.Send(L"BLGET", {.percent = 77, .rect = {1, 1, 1, 1}, .point = {2, 2}});
    EXPECT_EQ(laptop.ui.Received(), Texts{L"BLSET"});
    EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).handle, percent) << "the high half stays empty";
  }
}

TEST(BrightPanel, IsReportedWhileBatterySaverIsInForce) {
  using Arrange = void (*)(Laptop&);
  for (const auto& [what, warned, level, arrange] : {
           std::tuple<std::string_view, bool, std::uint32_t, Arrange>("bright", true, 59, [](Laptop&) {}),
           {"not bright by the low byte", false, 0x0001003A, [](Laptop&) {}},
           {"unreadable, but for the panel's status", true, 10,
            [](Laptop& l) { l.faults.Fail<&os::Control>({.after = 1}); }},
           {"saver off", false, 59, [](Laptop& l) { l.power.BatterySaver(false); }},
           {"not wanted", false, 59, [](Laptop& l) { l.ui.Send(L"POWERSAVEROFF"); }},
           {"on mains", true, 59, [](Laptop& l) { l.power.Plug(); }},
           {"panel in another status", false, 59,
            [](Laptop& l) { l.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOn | 1); }},
       }) {
    RunningLaptop laptop;
    laptop.power.Unplug();
    laptop.power.BatterySaver(true);
    arrange(laptop);
    laptop.firmware.SetRegister(Firmware::kBacklight, level);
    laptop.ui.Send(L"BLSET", {.percent = 100});
    EXPECT_EQ(laptop.ui.Received(), warned ? Texts{L"POPBATTERYMESSAGE"} : Texts{}) << what;
    EXPECT_EQ(laptop.settings.Text(what == "on mains" ? L"Backlight" : L"BacklightDC"), L"255") << what;
  }
}

TEST(PowerSavingFromTheUi, IsStoredAndAppliedEitherWay) {
  RunningLaptop laptop({.backlightDC = 200});
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  for (const bool on : {false, true}) {
    ForgetTheStory(laptop);
    laptop.ui.Send(on ? L"POWERSAVERON" : L"POWERSAVEROFF");
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), on ? L"1" : L"0");
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), Words{on ? 58U : 200U});
  }
}

}  // namespace

#include "os/device_io.h"
#include "os/power.h"
#include "os/settings_store.h"
#include "power/settings.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

TEST(BacklightFromTheUi, IsStoredInFirmwareUnits) {
  using Case = std::tuple<std::int32_t, const wchar_t*>;
  RunningLaptop laptop;
  for (const auto& [percent, stored] :
       {Case{0, L"0"}, {39, L"99"}, {50, L"127"}, {100, L"255"}, {-4, L"-10"}, {2'000'000'000, L"2147483647"}}) {
    ForgetTheStory(laptop);
    laptop.ui.Send(L"BLSET", {.percent = percent});
    EXPECT_EQ(laptop.settings.Text(L"Backlight"), stored);
    EXPECT_EQ(std::to_wstring(static_cast<std::int32_t>(gSettings().UserBacklightValue)), stored);
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kBacklight).empty()) << "the UI sets the panel itself";
    EXPECT_TRUE(laptop.ui.Received().empty());
  }
}

struct Saving {
  const char* what;
  bool saver = true, wanted = true, onBattery = true;
  std::uint32_t status = 0x000100A0, level = 59;
  bool levelReadable = true, sourceKnown = true, powerReadable = true;
  bool warned = false;
};

void ExpectWarning(const Saving& c) {
  SCOPED_TRACE(c.what);
  RunningLaptop laptop;
  if (!c.wanted) laptop.ui.Send(L"POWERSAVEROFF");
  if (c.onBattery) laptop.power.Unplug();
  if (c.saver) laptop.power.BatterySaver(true);
  laptop.firmware.SetRegister(Firmware::kPower, c.status);
  laptop.firmware.SetRegister(Firmware::kBacklight, c.level);
  if (!c.sourceKnown) laptop.power.SourceUnknown();
  if (!c.powerReadable) laptop.faults.Fail<&os::QueryPowerStatus>();
  if (!c.levelReadable) laptop.faults.Fail<&os::Control>({.after = 1});  // the panel's status can still be read
  ForgetTheStory(laptop);

  laptop.ui.Send(L"BLSET", {.percent = 100});
  EXPECT_EQ(laptop.ui.Received(), c.warned ? Texts{L"POPBATTERYMESSAGE"} : Texts{});
  if (!c.wanted) EXPECT_TRUE(laptop.firmware.Requests().empty()) << "nothing to check";
  EXPECT_EQ(laptop.settings.Text(c.onBattery ? L"BacklightDC" : L"Backlight"), L"255") << "stored in any case";
}

TEST(BrightPanel, IsReportedWhileBatterySaverIsInForce) {
  for (const auto& c :
       {Saving{.what = "bright", .warned = true}, Saving{.what = "not bright by the low byte", .level = 0x0001003A},
        Saving{.what = "unreadable", .level = 10, .levelReadable = false, .warned = true},
        Saving{.what = "saver off", .saver = false}, Saving{.what = "not wanted", .wanted = false},
        Saving{.what = "on mains", .onBattery = false, .warned = true},
        Saving{.what = "panel in another status", .status = 0x000100A1},
        Saving{.what = "source unknown", .sourceKnown = false},
        Saving{.what = "power unreadable", .powerReadable = false}}) {
    ExpectWarning(c);
  }
}

TEST(BacklightToTheUi, IsAnsweredInPercent) {
  using Case = std::tuple<std::uint32_t, std::int32_t>;
  RunningLaptop laptop;
  for (const auto& [status, percent] : {Case{2, 0}, {3, 1}, {254, 99}, {0x000100FF, 99}, {0xFFFFFF00, 0}}) {
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kBacklight, status);
    laptop.ui.Send(L"BLGET", {.percent = 77, .rect = {1, 1, 1, 1}, .point = {2, 2}});
    const auto answers = laptop.ui.ReceivedTexts();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].text, L"BLSET");
    EXPECT_EQ(answers[0].Percent(), percent);
    EXPECT_EQ(answers[0].handle, static_cast<std::uint32_t>(percent)) << "the high half stays empty";
  }
}

TEST(PowerSavingFromTheUi, IsStoredAndAppliedEitherWay) {
  RunningLaptop laptop({.backlightDC = 200});
  laptop.power.Unplug();
  laptop.power.BatterySaver(true);
  const std::tuple<const wchar_t*, const wchar_t*, std::uint32_t> off{L"POWERSAVEROFF", L"0", 200},
      on{L"POWERSAVERON", L"1", 58};
  for (const auto& [command, stored, level] : {off, on, on, off}) {
    SCOPED_TRACE(command);
    ForgetTheStory(laptop);
    laptop.ui.Send(command);
    EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), stored);
    EXPECT_EQ(gPowerSavingEnabled(), level == 58);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kBacklight), std::vector{level});
  }
}

}  // namespace

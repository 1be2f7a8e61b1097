// The machine is folded over into a tablet, and back.

#include "power/flip_state.h"

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "power/panel_status.h"
#include "tests/support.h"

namespace {

using sim::Firmware;
using support::ForgetTheStory;
using support::RunningLaptop;
using support::Texts;
using Words = std::vector<std::uint32_t>;

TEST(FlipState, FoldedOverThePanelIsNotShownAndBackAsANotebookItIsAsTheUserChose) {
  using Case = std::tuple<const wchar_t*, Texts, Words>;
  for (const auto& [saved, told, powers] :
       {Case{L"On", {L"POWERON"}, {}}, {L"Off", {L"POWEROFF"}, {0}}, {L"neither", {}, {}}}) {
    SCOPED_TRACE(testing::PrintToString(saved));
    RunningLaptop laptop({.uiRunning = true});
    laptop.firmware.Flip(true);
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
    EXPECT_FALSE(tessaview::isTessaviewPowerOn.get());
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the choice stays";
    EXPECT_TRUE(laptop.firmware.PanelOn());

    laptop.settings.Set(L"Tessaview", saved);
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kFlip, 0xFFFFFFFE);  // only the lowest bit counts
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), told);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), powers);
  }
}

TEST(FlipState, IsKnownFromTheFirstReadingThatSucceeds) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.firmware.Flip(true);
  laptop.faults.Fail<&os::Control>({.times = 1});
  laptop.hotKey.FlipChanged();
  EXPECT_FALSE(tessaview::gFlipInfoValid.get());
  EXPECT_EQ(laptop.ui.Received(), Texts{});

  laptop.hotKey.FlipChanged();
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  laptop.firmware.driverInstalled = false;
  laptop.hotKey.FlipChanged();
  EXPECT_TRUE(tessaview::gFlipInfoValid.get()) << "once known, always known";
}

}  // namespace

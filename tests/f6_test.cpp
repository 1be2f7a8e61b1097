// F6: a sequence that the component ends, the whole story of switching the panel off by key; and the machine folded
// over.

#include "power/flip_state.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr std::int64_t kOff = 2;  // what the component wants of the panel

/// A laptop at work, its panel on, its events as the hot-key component leaves them.
class F6Off : public testing::Test {
 protected:
  F6Off() {
    laptop.events.Signal(KernelObjects::kPowerEvent);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
  }
  RunningLaptop laptop{{.saved = L"On", .uiRunning = true}};
};

TEST_F(F6Off, IsDoneForItsOwnWishAndKeyOnly) {
  for (const std::uint64_t key : {0ULL, 0x6CULL, 0xF8ULL, 0x1000000F9ULL}) laptop.hotKey.Notify(key, kOff);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  for (const std::int64_t action : {0LL, 1LL, 4LL, -2LL}) {
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.hotKey.UseF6(action);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent)) << "a sequence ended all the same";
  }
  EXPECT_EQ(laptop.ui.Received(), Texts{});
  laptop.hotKey.UseF6(kOff);
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
}

TEST_F(F6Off, EndsTheSwitchEvenWhenTheFirmwareRefuses) {
  laptop.faults.Fail<&os::Control>();
  laptop.hotKey.UseF6(kOff);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
}

TEST(F6On, BringsThePanelBack) {
  RunningLaptop laptop({.saved = L"Off", .generation = 1, .uiRunning = true});  // whose C panel is not listed as such
  laptop.displays.Project(Topology::Clone);
  laptop.displays.Changed();
  laptop.hotKey.UseF6(3);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_EQ(laptop.displays.topology, Topology::Extend);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_GT(TimesTold(laptop, L"CLOSEMASK"), 0);
}

TEST(F6InTheShop, StartsTheRetailDemoTimerWhenThePanelGoesOff) {
  for (const auto& [factoryFlag, period] : {std::pair(L"1", std::optional(300'000U)), {L"10", std::nullopt}}) {
    Laptop laptop({.saved = L"On"});
    laptop.registry.SetText(sim::Registry::kFactoryConfig, L"RetailDemo", factoryFlag);
    laptop.Boot();
    laptop.hotKey.UseF6(kOff);
    EXPECT_EQ(laptop.window.TimerPeriod(9527), period);
    laptop.hotKey.UseF6(3);
    EXPECT_FALSE(laptop.window.TimerPeriod(9527));
  }
}

TEST(TouchPadStatus, IsNotedAndHandedToTheUi) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  const auto countsAsEnabled = [&] {  // with the panel on, a press counts only while the touch pad does
    laptop.trace.Clear();
    laptop.hotKey.UseF6(0);
    return laptop.trace.Contains(L"----------------- TESSAVIEW_POWER_STATUS_TOUCHPAD --------------------- \n");
  };
  for (const auto& [state, enabled] : {std::pair(0, false), {2, false}, {1, true}, {2, true}, {9, true}, {0, false}}) {
    laptop.ui.ForgetReceived();
    laptop.hotKey.TouchPadStatus(3, state);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"GETTOUCHPAD"});
    EXPECT_EQ(countsAsEnabled(), enabled);
  }
  laptop.ui.ForgetReceived();
  for (const std::uint64_t wParam : {0ULL, 2ULL, 4ULL, 0x100000003ULL}) laptop.hotKey.TouchPadStatus(wParam, 1);
  EXPECT_EQ(laptop.ui.Received(), Texts{});
  EXPECT_FALSE(countsAsEnabled()) << "no report";
}

TEST(FlipState, FoldedOverThePanelIsNotShownAndBackAsANotebookItIsAsTheUserChose) {
  for (const std::wstring saved : {L"On", L"Off", L"neither"}) {
    RunningLaptop laptop({.uiRunning = true});
    laptop.firmware.Flip(true);
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the choice stays";

    laptop.settings.Set(L"Tessaview", saved);
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kFlip, 0xFFFFFFFE);  // only the lowest bit counts
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), saved == L"On"    ? Texts{L"POWERON"}
                                    : saved == L"Off" ? Texts{L"POWEROFF"}
                                                      : Texts{});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), saved == L"Off" ? Words{0} : Words{});
  }
}

TEST(FlipState, IsKnownFromTheFirstReadingThatSucceeds) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.firmware.Flip(true);
  laptop.faults.Fail<&os::Control>({.times = 1});
  laptop.hotKey.FlipChanged();
  EXPECT_FALSE(tessaview::gFlipInfoValid());
  EXPECT_EQ(laptop.ui.Received(), Texts{});
  laptop.hotKey.FlipChanged();
  laptop.firmware.driverInstalled = false;
  laptop.hotKey.FlipChanged();
  EXPECT_TRUE(tessaview::gFlipInfoValid()) << "once known, always known";
}

}  // namespace

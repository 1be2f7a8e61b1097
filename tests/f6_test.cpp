// F6: what a sequence switches at its end, the touch pad's status, and the machine folded over.

#include "power/flip_state.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr std::int64_t kOff = 2;  // what the component wants of the panel

TEST(F6Off, IsDoneForItsOwnWishAndKeyOnlyAndEndsTheSwitchEvenWhenTheFirmwareRefuses) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  laptop.events.Signal(KernelObjects::kPowerEvent);
  laptop.events.Signal(KernelObjects::kSwitchingEvent);
  for (const std::uint64_t key : {0ULL, 0x6CULL, 0xF8ULL, 0x1000000F9ULL}) laptop.hotKey.Notify(key, kOff);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  laptop.faults.Fail<&os::Control>();
  for (const auto action : std::vector<std::int64_t>{0, 1, 4, -2, kOff}) {
    EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent) && laptop.ui.Received().empty());
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    laptop.hotKey.UseF6(action);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent)) << "a sequence ended all the same";
  }
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
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

TEST(TouchPadStatus, IsHandedToTheUiAndNotedUnlessItIsUnknown) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  for (const auto state : {1, 2, 9}) laptop.hotKey.TouchPadStatus(3, state);
  for (const std::uint64_t wParam : {0ULL, 2ULL, 4ULL, 0x100000003ULL}) laptop.hotKey.TouchPadStatus(wParam, 0);
  EXPECT_EQ(laptop.ui.Received(), Texts(3, L"GETTOUCHPAD")) << "the others are no reports";
  laptop.hotKey.UseF6(0);  // with the panel on, a press counts only while the touch pad is enabled
  EXPECT_TRUE(laptop.trace.Contains(L"----------------- TESSAVIEW_POWER_STATUS_TOUCHPAD --------------------- \n"));
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

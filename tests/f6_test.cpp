// F6: presses that count, the mode they end in, the whole story of switching the panel off by key; and the machine
// folded over.

#include "os/device_io.h"
#include "power/flip_state.h"
#include "power/panel_status.h"
#include "tests/support.h"
#include "uilink/events/f6_sequence.h"

namespace {

using namespace support;

constexpr std::int64_t kOther = 0, kOff = 2;  // what the component wants of the panel
constexpr std::uint64_t kRetailDemoTimer = 9527;

constexpr auto kPanel = L"TESSAVIEW", kPad = L"TOUCHPAD", kAllOff = L"ALLOFF";  // the modes

std::wstring StartLine(const std::wstring& mode, int presses) {
  return L"----- F6 start as " + mode + L" and switch time = " + std::to_wstring(presses) + L" ----- \n";
}

TEST(F6, ASequenceEndsInTheModeItsPressesLeadTo) {
  using Case = std::tuple<const wchar_t*, int, int, const wchar_t*, const wchar_t*>;
  for (const auto& [saved, padEnabled, presses, start, end] :
       {Case{L"On", 1, 1, kPanel, kPad},
        {L"On", 1, 2, kPanel, kAllOff},
        {L"On", 1, 10, kPanel, kPad},
        {L"Off", 1, 1, kPad, kAllOff},
        {L"Off", 0, 1, kAllOff, kPanel},
        {L"Off", 0, 0, kAllOff, kAllOff},
        // With the panel on and the pad off the presses do not count.
        {L"On", 0, 2, nullptr, kPanel}}) {
    SCOPED_TRACE(testing::PrintToString(saved) + std::to_string(presses));
    RunningLaptop laptop({.saved = saved});
    laptop.hotKey.TouchPadStatus(3, padEnabled);
    laptop.hotKey.PressF6(presses);
    laptop.trace.Clear();
    laptop.hotKey.EndF6(kOther);

    for (const auto* mode : {kPanel, kPad, kAllOff}) {
      EXPECT_EQ(laptop.trace.Contains(StartLine(mode, presses)), mode == start);
      EXPECT_EQ(laptop.trace.Contains(L"----------------- TESSAVIEW_POWER_STATUS_" + std::wstring(mode) +
                                      L" --------------------- \n"),
                mode == end);
    }
    EXPECT_EQ(laptop.trace.Usage(), Texts{L"TESSAVIEW_F6_" + std::wstring(end)});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), saved) << "the component wanted nothing of the panel";
  }
}

TEST(F6, ASequenceIsJudgedByTheChoiceAtItsFirstPress) {
  RunningLaptop laptop;
  laptop.hotKey.TouchPadStatus(3, 1);
  laptop.hotKey.PressF6();
  laptop.settings.Set(L"Tessaview", L"Off");
  laptop.hotKey.UseF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(StartLine(kPanel, 2)));

  laptop.hotKey.UseF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(StartLine(kPad, 1))) << "a new sequence counts from the beginning";

  laptop.settings.Set(L"Tessaview", L"on");
  laptop.hotKey.UseF6(kOther, 2);
  EXPECT_TRUE(laptop.trace.Contains(StartLine(kPad, 2))) << "what is no choice leaves the last one in force";
}

/// A laptop at work, its panel on, its events as the hot-key component leaves them.
class F6Off : public testing::Test {
 protected:
  F6Off() {
    laptop.hotKey.TouchPadStatus(3, 1);
    laptop.events.Signal(KernelObjects::kPowerEvent);
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    ForgetTheStory(laptop);
  }
  /// With the panel on, a press counts only while the touch pad does.
  bool CountsAsEnabled() {
    laptop.trace.Clear();
    PressOnceFor(0);
    return laptop.trace.Contains(L"----------------- TESSAVIEW_POWER_STATUS_TOUCHPAD --------------------- \n");
  }
  void PressOnceFor(std::int64_t action) { laptop.hotKey.UseF6(action); }

  RunningLaptop laptop{{.saved = L"On", .uiRunning = true}};
};

TEST_F(F6Off, IsDoneForItsOwnWishAndKeyOnly) {
  for (const std::int64_t action : {0LL, 1LL, 4LL, -2LL}) {
    laptop.events.Signal(KernelObjects::kSwitchingEvent);
    PressOnceFor(action);
    EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent)) << "a sequence ended all the same";
  }
  laptop.events.Signal(KernelObjects::kSwitchingEvent);
  for (const std::uint64_t key : {0ULL, 0x6CULL, 0xF8ULL, 0x1000000F9ULL}) laptop.hotKey.Notify(key, kOff);
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.ui.Received(), Texts{});
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
}

TEST_F(F6Off, EndsTheSwitchEvenWhenTheFirmwareRefusesAndNeedsNobodyToListen) {
  laptop.faults.Fail<&os::Control>();
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));

  laptop.faults.ClearAll();
  laptop.events.Remove(KernelObjects::kPowerEvent);
  laptop.events.Remove(KernelObjects::kSwitchingEvent);
  laptop.hotKey.Remove();
  EXPECT_TRUE(laptop.Boot());
  laptop.ui.Die();
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.events.OpenHandles(), 2U) << "the instance mutex, and what the watchdog waits for";
}

TEST(F6InTheShop, StartsTheRetailDemoTimerWhenThePanelGoesOff) {
  using Case = std::tuple<std::uint32_t, const wchar_t*, std::int64_t, bool>;
  for (const auto& [serviceState, factoryFlag, action, started] :
       {Case{4, L"", kOff, true}, {1, L"1", kOff, true}, {1, L"10", kOff, false}, {4, L"1", kOther, false}}) {
    SCOPED_TRACE(serviceState);
    Laptop laptop({.saved = L"On"});
    laptop.services.Set(L"RetailDemo", serviceState);
    laptop.registry.SetText(sim::Registry::kFactoryConfig, L"RetailDemo", factoryFlag);
    laptop.Boot();
    ASSERT_FALSE(laptop.window.TimerPeriod(kRetailDemoTimer));
    laptop.hotKey.UseF6(action);
    EXPECT_EQ(laptop.window.TimerPeriod(kRetailDemoTimer), started ? std::optional(300'000U) : std::nullopt);
  }
}

TEST_F(F6Off, TouchPadReportsAreNotedAndHandedToTheUi) {
  using Step = std::pair<std::int64_t, bool>;  // the state reported, and whether the pad counts as enabled after it
  for (const auto& [state, enabled] : {Step{0, false}, {2, false}, {1, true}, {2, true}, {9, true}, {0, false}}) {
    SCOPED_TRACE(state);
    laptop.ui.ForgetReceived();
    laptop.hotKey.TouchPadStatus(3, state);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"GETTOUCHPAD"});
    EXPECT_EQ(CountsAsEnabled(), enabled);
  }
  laptop.ui.ForgetReceived();
  for (const std::uint64_t wParam : {0ULL, 1ULL, 2ULL, 4ULL, 0x100000003ULL}) laptop.hotKey.TouchPadStatus(wParam, 1);
  EXPECT_EQ(laptop.ui.Received(), Texts{});
  EXPECT_FALSE(CountsAsEnabled()) << "no report";
}

TEST(FlipState, FoldedOverThePanelIsNotShownAndBackAsANotebookItIsAsTheUserChose) {
  using Case = std::tuple<const wchar_t*, Texts, Words>;
  for (const auto& [saved, told, powers] :
       {Case{L"On", {L"POWERON"}, {}}, {L"Off", {L"POWEROFF"}, {0}}, {L"neither", {}, {}}}) {
    SCOPED_TRACE(testing::PrintToString(saved));
    RunningLaptop laptop({.uiRunning = true});
    laptop.firmware.Flip(true);
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
    EXPECT_FALSE(tessaview::isTessaviewPowerOn());
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
  EXPECT_FALSE(tessaview::gFlipInfoValid());
  EXPECT_EQ(laptop.ui.Received(), Texts{});

  laptop.hotKey.FlipChanged();
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  laptop.firmware.driverInstalled = false;
  laptop.hotKey.FlipChanged();
  EXPECT_TRUE(tessaview::gFlipInfoValid()) << "once known, always known";
}

}  // namespace

// F6: presses that count, the mode they end in, and the whole story of switching the panel off by key.

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "tests/support.h"
#include "uilink/f6_sequence.h"

namespace {

using sim::KernelObjects;
using sim::Laptop;
using support::ForgetTheStory;
using support::RunningLaptop;
using support::Texts;

constexpr std::int64_t kOther = 0, kOff = 2;  // what the component wants of the panel
constexpr std::uint64_t kRetailDemoTimer = 9527;

constexpr auto kPanel = L"TESSAVIEW", kPad = L"TOUCHPAD", kAllOff = L"ALLOFF";  // the modes

std::wstring StartLine(const std::wstring& mode, int presses) {
  return L"----- F6 start as " + mode + L" and switch time = " + std::to_wstring(presses) + L" ----- \n";
}

TEST(F6, ASequenceEndsInTheModeItsPressesLeadTo) {
  struct Case {
    const wchar_t* saved;
    int padEnabled, presses;
    const wchar_t *start, *end;  // no start: none is logged
  };
  const Case cases[] = {
      {L"On", 1, 1, kPanel, kPad},
      {L"On", 1, 2, kPanel, kAllOff},
      {L"On", 1, 10, kPanel, kPad},
      {L"Off", 1, 1, kPad, kAllOff},
      {L"Off", 0, 1, kAllOff, kPanel},
      {L"Off", 0, 0, kAllOff, kAllOff},
      // With the panel on and the pad off the presses do not count.
      {L"On", 0, 2, nullptr, kPanel},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.saved) + std::to_string(c.presses));
    RunningLaptop laptop({.saved = c.saved});
    laptop.hotKey.TouchPadStatus(3, c.padEnabled);
    laptop.hotKey.PressF6(c.presses);
    laptop.trace.Clear();
    laptop.hotKey.EndF6(kOther);

    for (const auto* mode : {kPanel, kPad, kAllOff}) {
      EXPECT_EQ(laptop.trace.Contains(StartLine(mode, c.presses)), mode == c.start);
      EXPECT_EQ(laptop.trace.Contains(L"----------------- TESSAVIEW_POWER_STATUS_" + std::wstring(mode) +
                                      L" --------------------- \n"),
                mode == c.end);
    }
    EXPECT_EQ(laptop.trace.Usage(), Texts{L"TESSAVIEW_F6_" + std::wstring(c.end)});
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), c.saved) << "the component wanted nothing of the panel";
  }
}

TEST(F6, ASequenceIsJudgedByTheChoiceAtItsFirstPress) {
  RunningLaptop laptop;
  laptop.hotKey.TouchPadStatus(3, 1);
  laptop.hotKey.PressF6();
  laptop.settings.Set(L"Tessaview", L"Off");
  laptop.hotKey.PressF6();
  laptop.hotKey.EndF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(StartLine(kPanel, 2)));

  laptop.hotKey.PressF6();
  laptop.hotKey.EndF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(StartLine(kPad, 1))) << "a new sequence counts from the beginning";

  laptop.settings.Set(L"Tessaview", L"on");
  laptop.hotKey.PressF6(2);
  laptop.hotKey.EndF6(kOther);
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
  void PressOnceFor(std::int64_t action) {
    laptop.hotKey.PressF6();
    laptop.hotKey.EndF6(action);
  }

  RunningLaptop laptop{{.saved = L"On", .uiRunning = true}};
};

TEST_F(F6Off, SwitchesThePanelOffAndPublishesIt) {
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.firmware.Writes(sim::Firmware::kPower), std::vector{0U});
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
}

TEST_F(F6Off, IsNotDoneForOtherWishesOrOtherKeys) {
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
  EXPECT_EQ(laptop.events.OpenHandles(), 1U) << "the instance mutex";
}

TEST(F6InTheShop, StartsTheRetailDemoTimerWhenThePanelGoesOff) {
  struct Case {
    std::uint32_t serviceState;
    const wchar_t* factoryFlag;
    std::int64_t action;
    bool started;
  };
  for (const auto& c :
       {Case{4, L"", kOff, true}, {1, L"1", kOff, true}, {1, L"10", kOff, false}, {4, L"1", kOther, false}}) {
    SCOPED_TRACE(c.serviceState);
    Laptop laptop({.saved = L"On"});
    laptop.services.Set(L"RetailDemo", c.serviceState);
    laptop.registry.SetText(sim::Registry::kFactoryConfig, L"RetailDemo", c.factoryFlag);
    laptop.Boot();
    ASSERT_FALSE(laptop.window.TimerPeriod(kRetailDemoTimer));
    laptop.hotKey.PressF6();
    laptop.hotKey.EndF6(c.action);
    EXPECT_EQ(laptop.window.TimerPeriod(kRetailDemoTimer), c.started ? std::optional(300'000U) : std::nullopt);
  }
}

TEST_F(F6Off, TouchPadReportsAreNotedAndHandedToTheUi) {
  using Step = std::pair<std::int64_t, bool>;  // the state reported, and whether the pad counts as enabled after it
  for (const auto& [state, enabled] : {Step{0, false}, {2, false}, {1, true}, {2, true}, {9, true}, {0, false}}) {
    SCOPED_TRACE(state);
    laptop.ui.ForgetReceived();
    laptop.hotKey.TouchPadStatus(3, state);
    EXPECT_EQ(tessaview::gTouchPadEnabled.get(), enabled);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"GETTOUCHPAD"});
  }
  laptop.ui.ForgetReceived();
  for (const std::uint64_t wParam : {0ULL, 1ULL, 2ULL, 4ULL, 0x100000003ULL}) laptop.hotKey.TouchPadStatus(wParam, 1);
  EXPECT_FALSE(tessaview::gTouchPadEnabled.get()) << "no report";
  EXPECT_EQ(laptop.ui.Received(), Texts{});
}

}  // namespace

// F6: presses that count, the mode they end in, and the whole story of switching the panel off by key.

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "tests/support.h"
#include "uilink/f6_sequence.h"

namespace {

using sim::Firmware;
using sim::KernelObjects;
using sim::Laptop;
using support::ForgetTheStory;
using support::LogsInOrder;
using support::RunningLaptop;
using Texts = std::vector<std::wstring>;
using Words = std::vector<std::uint32_t>;

constexpr std::int64_t kOther = 0, kOff = 2;  // what the component wants of the panel
constexpr std::uint64_t kRetailDemoTimer = 9527;

constexpr auto kPanelLine = L"----------------- TESSAVIEW_POWER_STATUS_TESSAVIEW --------------------- \n";
constexpr auto kPadLine = L"----------------- TESSAVIEW_POWER_STATUS_TOUCHPAD --------------------- \n";
constexpr auto kAllOffLine = L"----------------- TESSAVIEW_POWER_STATUS_ALLOFF --------------------- \n";

struct Outcome {
  const wchar_t* line;
  const wchar_t* usage;
};
const Outcome kPanel{kPanelLine, L"TESSAVIEW_F6_TESSAVIEW"}, kPad{kPadLine, L"TESSAVIEW_F6_TOUCHPAD"},
    kAllOff{kAllOffLine, L"TESSAVIEW_F6_ALLOFF"};

TEST(F6, EachPressGoesOneModeOnRoundAndRound) {
  for (std::uint32_t start = 0; start < 3; ++start) {
    for (std::uint32_t presses = 0; presses < 9; ++presses) {
      const auto mode = tessaview::ModeAfter(static_cast<tessaview::F6Mode>(start), presses);
      EXPECT_EQ(static_cast<std::uint32_t>(mode), (start + presses) % 3) << start << " + " << presses;
    }
  }
}

TEST(F6, ASequenceEndsInTheModeItsPressesLeadTo) {
  struct Case {
    const wchar_t* saved;
    bool padEnabled;
    int presses;
    const wchar_t* startLine;  // null: none is logged
    Outcome outcome;
  };
  const Case cases[] = {
      {L"On", true, 1, L"----- F6 start as TESSAVIEW and switch time = 1 ----- \n", kPad},
      {L"On", true, 2, L"----- F6 start as TESSAVIEW and switch time = 2 ----- \n", kAllOff},
      {L"On", true, 3, L"----- F6 start as TESSAVIEW and switch time = 3 ----- \n", kPanel},
      {L"On", true, 10, L"----- F6 start as TESSAVIEW and switch time = 10 ----- \n", kPad},
      {L"Off", true, 1, L"----- F6 start as TOUCHPAD and switch time = 1 ----- \n", kAllOff},
      {L"Off", true, 2, L"----- F6 start as TOUCHPAD and switch time = 2 ----- \n", kPanel},
      {L"Off", false, 1, L"----- F6 start as ALLOFF and switch time = 1 ----- \n", kPanel},
      {L"Off", false, 2, L"----- F6 start as ALLOFF and switch time = 2 ----- \n", kPad},
      {L"Off", false, 0, L"----- F6 start as ALLOFF and switch time = 0 ----- \n", kAllOff},
      // With the panel on and the pad off the presses do not count.
      {L"On", false, 1, nullptr, kPanel},
      {L"On", false, 2, nullptr, kPanel},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.saved));
    SCOPED_TRACE(c.presses);
    RunningLaptop laptop({.saved = c.saved});
    laptop.hotKey.TouchPadStatus(3, c.padEnabled ? 1 : 0);
    laptop.hotKey.PressF6(c.presses);
    laptop.trace.Clear();
    laptop.hotKey.EndF6(kOther);

    Texts lines;
    for (const auto& line : laptop.trace.Lines()) {
      if (line.starts_with(L"-----") && line.find(L"ACPINOTIFICATION") == std::wstring::npos) lines.push_back(line);
    }
    EXPECT_EQ(lines, c.startLine ? (Texts{c.startLine, c.outcome.line}) : Texts{c.outcome.line});
    EXPECT_EQ(laptop.trace.Usage(), Texts{c.outcome.usage});
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
  EXPECT_TRUE(laptop.trace.Contains(L"----- F6 start as TESSAVIEW and switch time = 2 ----- \n"));

  laptop.hotKey.PressF6();
  laptop.hotKey.EndF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(L"----- F6 start as TOUCHPAD and switch time = 1 ----- \n"))
      << "a new sequence counts from the beginning";

  laptop.settings.Set(L"Tessaview", L"on");
  laptop.trace.Clear();
  laptop.hotKey.PressF6();
  laptop.hotKey.EndF6(kOther);
  EXPECT_TRUE(laptop.trace.Contains(L"----- F6 start as TOUCHPAD and switch time = 1 ----- \n"))
      << "what is no choice leaves the last one in force";
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

TEST_F(F6Off, SwitchesThePanelOffEverywhere) {
  PressOnceFor(kOff);

  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), Words{0});
  EXPECT_FALSE(laptop.firmware.PanelOn());
  os::Bytes report{3, 0x00, 0x09, 0xA1, 0x00, 0x00, 0x0F, 0x00, 0x00, 0x00, 0x08, 0x70};
  report.resize(64);  // the length of the collection's output report
  EXPECT_EQ(laptop.touch.OutputReports(), std::vector<os::Bytes>{report});
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
  EXPECT_FALSE(laptop.window.TimerPeriod(kRetailDemoTimer));
  EXPECT_TRUE(LogsInOrder(
      laptop, {L"wParam = 0X6B , lParam = 0X0 \n", L"wParam = 0XF9 , lParam = 0X2 \n", kPadLine,
               L"----------------- F6 send Tessaview Off --------------------- \n",
               L"[TessaviewPowerControl] -------- Start -------- \n", L"[TessaviewPowerControl] Set Cursor Mode \n",
               L"[Update_UI_Status] Send to UI : Power Off (ini TessaviewStatus = Off) \n"}));
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
  EXPECT_TRUE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.ui.Received(), Texts{});
}

TEST_F(F6Off, EndsTheSwitchEvenWhenTheFirmwareRefuses) {
  laptop.faults.Fail<&os::Control>();
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kPowerEvent));
  EXPECT_FALSE(laptop.events.Signalled(KernelObjects::kSwitchingEvent));
}

TEST_F(F6Off, NeedsNobodyToListen) {
  laptop.events.Remove(KernelObjects::kPowerEvent);
  laptop.events.Remove(KernelObjects::kSwitchingEvent);
  laptop.hotKey.Remove();
  laptop.ui.Die();
  PressOnceFor(kOff);
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
  EXPECT_FALSE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.events.OpenHandles(), 1U) << "the instance mutex";
}

TEST(F6InTheShop, StartsTheRetailDemoTimerWhenThePanelGoesOff) {
  struct Case {
    std::uint32_t serviceState;
    const wchar_t* factoryFlag;  // null: not there
    std::int64_t action;
    std::optional<std::uint32_t> periodMs;
  };
  for (const auto& c : {Case{4, nullptr, kOff, 300'000},
                        {1, L"1", kOff, 300'000},
                        {4, L"0", kOff, 300'000},
                        {1, L"0", kOff, std::nullopt},
                        {1, L"10", kOff, std::nullopt},
                        {7, nullptr, kOff, std::nullopt},
                        {4, L"1", kOther, std::nullopt}}) {
    SCOPED_TRACE(c.serviceState);
    Laptop laptop({.saved = L"On"});
    laptop.services.Set(L"RetailDemo", c.serviceState);
    if (c.factoryFlag != nullptr) {
      laptop.registry.SetText(L"SOFTWARE\\NORV\\FactoryConfig", L"RetailDemo", c.factoryFlag);
    }
    laptop.Boot();
    ASSERT_FALSE(laptop.window.TimerPeriod(kRetailDemoTimer));
    laptop.hotKey.PressF6();
    laptop.hotKey.EndF6(c.action);
    EXPECT_EQ(laptop.window.TimerPeriod(kRetailDemoTimer), c.periodMs);
  }
}

// ---- The touch pad's status, as the hot-key component reports it ----

TEST_F(F6Off, TouchPadReportsAreNotedAndHandedToTheUi) {
  struct Case {
    std::int64_t state;
    const wchar_t* line;  // null: none of its own
    bool enabledAfter;    // it was not before, except where the story says so
  };
  for (const auto& c : {Case{0, L"[WM_CONTROLPANEL_APPNOTIFICATION]Touchpad is disabled. \n", false},
                        {2, L"[WM_CONTROLPANEL_APPNOTIFICATION]Status unknown. \n", false},
                        {1, L"[WM_CONTROLPANEL_APPNOTIFICATION]Touchpad is enabled. \n", true},
                        {2, L"[WM_CONTROLPANEL_APPNOTIFICATION]Status unknown. \n", true},
                        {9, nullptr, true},
                        {0, L"[WM_CONTROLPANEL_APPNOTIFICATION]Touchpad is disabled. \n", false}}) {
    SCOPED_TRACE(c.state);
    ForgetTheStory(laptop);
    laptop.hotKey.TouchPadStatus(3, c.state);
    Texts expected;
    if (c.line != nullptr) expected.push_back(c.line);
    expected.push_back(L"Touchpad status is changed. \n");
    EXPECT_EQ(laptop.trace.Lines(), expected);
    EXPECT_EQ(tessaview::gTouchPadEnabled.get(), c.enabledAfter);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"GETTOUCHPAD"});
  }
  ForgetTheStory(laptop);
  for (const std::uint64_t wParam : {0ULL, 1ULL, 2ULL, 4ULL, 0x100000003ULL}) laptop.hotKey.TouchPadStatus(wParam, 1);
  EXPECT_FALSE(tessaview::gTouchPadEnabled.get()) << "no report";
  EXPECT_EQ(laptop.trace.Lines(), Texts{});
  EXPECT_EQ(laptop.ui.Received(), Texts{});
}

}  // namespace

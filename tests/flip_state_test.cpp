// The machine is folded over into a tablet, and back.

#include "power/flip_state.h"

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "power/panel_status.h"
#include "tests/support.h"

namespace {

using sim::Firmware;
using support::ForgetTheStory;
using support::LogsInOrder;
using support::RunningLaptop;
using Texts = std::vector<std::wstring>;
using Words = std::vector<std::uint32_t>;

TEST(FlipState, FoldedOverThePanelIsNotShownYetTheChoiceStays) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  laptop.firmware.Flip(true);
  laptop.hotKey.FlipChanged();

  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  EXPECT_FALSE(tessaview::isTessaviewPowerOn.get());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_FALSE(laptop.touch.InCursorMode());
  EXPECT_TRUE(LogsInOrder(laptop, {L"----------------- WM_ACPINOTIFICATION_MESSAGE --------------------- \n",
                                   L"wParam = 0XFA , lParam = 0X0 \n", L"[DisplayChange] Filp Mode \n",
                                   L"[DisplayChange] Send message to UI : POWEROFF \n"}));
}

TEST(FlipState, BackAsANotebookThePanelIsAsTheUserChose) {
  struct Case {
    const wchar_t* saved;
    Texts told;
    Words powers;
  };
  const Case cases[] = {{L"On", {L"POWERON"}, {}}, {L"Off", {L"POWEROFF"}, {0}}, {L"neither", {}, {}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.saved));
    RunningLaptop laptop({.uiRunning = true});
    laptop.firmware.Flip(true);
    laptop.hotKey.FlipChanged();
    laptop.settings.Set(L"Tessaview", c.saved);
    ForgetTheStory(laptop);
    laptop.firmware.SetRegister(Firmware::kFlip, 0xFFFFFFFE);  // only the lowest bit counts
    laptop.hotKey.FlipChanged();
    EXPECT_EQ(laptop.ui.Received(), c.told);
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), c.powers);
    EXPECT_TRUE(laptop.trace.Contains(L"[DisplayChange] NB Mode \n"));
    EXPECT_EQ(laptop.firmware.OpenHandles(), 0U);
  }
}

TEST(FlipState, IsKnownFromTheFirstReadingThatSucceeds) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.firmware.Flip(true);
  laptop.firmware.driverInstalled = false;
  laptop.hotKey.FlipChanged();
  laptop.firmware.driverInstalled = true;
  laptop.faults.Fail<&os::Control>({.times = 1});
  laptop.hotKey.FlipChanged();
  EXPECT_FALSE(tessaview::gFlipInfoValid.get());
  EXPECT_EQ(laptop.ui.Received(), Texts{});

  laptop.hotKey.FlipChanged();
  EXPECT_TRUE(tessaview::gFlipInfoValid.get());
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
  laptop.firmware.driverInstalled = false;
  laptop.hotKey.FlipChanged();
  EXPECT_TRUE(tessaview::gFlipInfoValid.get()) << "once known, always known";
}

}  // namespace

// What comes in the middle of a wait for another program: nothing stands still, and what came last counts.
#include "tests/support.h"

using namespace support;

TEST(Reentry, F6AndWinPTogetherWithAUiThatAsksBackDoNotBlockEachOther) {
  for (const bool turned : {false, true}) {
    Laptop laptop({.turnsUndocumented = turned, .saved = L"On", .uiRunning = true});
    laptop.Boot();
    laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
    laptop.displays.Project(Topology::Clone);
    ForgetTheStory(laptop);
    laptop.ui.whenTold = [&](const std::wstring& text) {
      if (text == L"POWERON") laptop.ui.AskBack(L"BLGET");
    };
    laptop.ui.HandleFor(200);
    {
      const auto quiet = laptop.Quietly();
      laptop.input.PressWinP();
      laptop.Advance(50);
      laptop.hotKey.EndF6(3);
    }
    EXPECT_TRUE(laptop.Settle());
    EXPECT_GE(TimesTold(laptop, L"BLSET"), 2) << "its questions are answered";
    EXPECT_EQ(LastPowerTold(laptop), L"POWERON");
    EXPECT_EQ(laptop.keyboardHook.LongestHoldUpMs(), 0U);
  }
}

TEST(Reentry, ALidOpenedInsideLidClosedEndsOpen) {
  LaptopInUse laptop;
  laptop.power.SetLidAction(Power::LidAction::DoNothing);
  ForgetTheStory(laptop);
  laptop.ui.HandleFor(300);
  {
    const auto quiet = laptop.Quietly();
    laptop.power.CloseLid();
    laptop.Advance(100);  // the UI is being told of the closed lid
    laptop.power.OpenLid();
  }
  laptop.Settle();
  const auto texts = laptop.ui.Received();
  EXPECT_EQ(texts.back(), L"CLOSEMASK") << testing::PrintToString(texts);
  EXPECT_EQ(LastPowerTold(laptop), L"POWERON");
  EXPECT_TRUE(LogsInOrder(laptop, {L"[DisplayChange] NB Closed \n",
                                   L"[DisplayChange] NB closed and lid off setting is do nothing. Send message to UI : "
                                   L"OPENMASK \n",
                                   L"[DisplayChange] NB Open \n"}));
}

TEST(Reentry, ADisplayChangeOfOurOwnIsDealtWithOnceTheOneBeforeIs) {
  LaptopInUse laptop;
  laptop.displays.cPanel().MoveTo(1920, 300);
  laptop.ui.HandleFor(200);
  laptop.displays.Changed();
  EXPECT_GE(laptop.trace.Count(L"WM_DISPLAYCHANGE \n"), 2U) << "the user's, and the one that put the panel back";
  EXPECT_EQ(laptop.displays.cPanel().Area(), kCPanel);
}

TEST(Reentry, ADisplayThatComesOnWhileACommandIsServedIsAskedOfComAfterwards) {
  LaptopInUse laptop;
  laptop.displays.wallpaperPaths = std::vector<std::wstring>{L""};
  laptop.power.SetDisplay(Power::Display::Off);
  ForgetTheStory(laptop);
  laptop.ui.whenTold = [&](const std::wstring& text) {
    if (text == L"BLSET") laptop.power.Notify(os::PowerSetting::ConsoleDisplayState, 1);
  };
  const auto quiet = laptop.Quietly();
  laptop.ui.Send(L"BLGET");
  laptop.Settle();
  EXPECT_TRUE(laptop.trace.Contains(L"[DisplayOn] Virtual monitor\n")) << "COM is refused inside a sent message";
}

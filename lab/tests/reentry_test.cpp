// What comes while the controller waits for the UI, over the real message queues: commands, keys and the lid.
#include <windows.h>

#include "kit/system_events.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

class Reentry : public LabTest {
 protected:
  /// How often the UI was told `text` and asked back. Whatever it asked was answered inside its handler.
  int AnsweredInside(const std::wstring& text, const std::wstring& command, const std::wstring& answer) const {
    const auto talk = UiTalk();
    int times = 0;
    for (std::size_t i = 0; i < talk.size(); ++i) {
      if (!talk[i].starts_with(L"received " + text)) continue;
      ++times;
      EXPECT_TRUE(i + 3 < talk.size() && talk[i + 1] == L"sent " + command &&
                  talk[i + 2].starts_with(L"received " + answer) && talk[i + 3] == L"answers " + text)
          << testing::PrintToString(talk);
    }
    return times;
  }
};

TEST_F(Reentry, WhatTheUiAsksBeforeItAnswersIsAnsweredAtOnce) {
  StartController();
  ASSERT_TRUE(StandInUi::AskBack(L"POWEROFF", L"BLGET") && StandInUi::AskBack(L"IAMBACK", L"VERSION=1.2.3.4"));
  Happens(L"the main thread tells the UI something, then another does");
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"answers POWEROFF"));
  Happen(SystemEvent::Resumed);
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"answers IAMBACK"));
  EXPECT_EQ(AnsweredInside(L"POWEROFF", L"BLGET", L"BLSET"), 1);
  EXPECT_EQ(AnsweredInside(L"IAMBACK", L"VERSION=1.2.3.4", L"VERSION=0.1.0.0"), 1);
}

TEST_F(Reentry, WinPAndF6TogetherWithAUiThatAsksBackDoNotBlockEachOther) {
  constexpr std::uint32_t kDuplicate = 2;
  StartController();
  PostMessageW(Controller::Window(), WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0);
  ASSERT_TRUE(Traced(L"[Hooks] The keyboard was not heard of, it is hooked again")) << "and hears what comes below";
  for (const auto* text : {L"POWEROFF", L"POWERON"}) ASSERT_TRUE(StandInUi::AskBack(text, L"BLGET", 200));
  ASSERT_TRUE(laptop.firmware.Set(kPanelPower, kPanelOff));
  state.topology = kDuplicate;
  Happens(L"the user presses Win+P, and F6 soon after");
  keybd_event(VK_LWIN, 0, 0, 0);
  keybd_event('P', 0, 0, 0);
  keybd_event('P', 0, KEYEVENTF_KEYUP, 0);
  keybd_event(VK_LWIN, 0, KEYEVENTF_KEYUP, 0);
  Sleep(50);
  Controller::PressF6(1, kF6PanelOn);
  EXPECT_TRUE(Traced(L"[Win + P] -------- End --------") && UiIsTold(L"CLOSEMASK"));
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_EQ(AnsweredInside(L"POWEROFF", L"BLGET", L"BLSET"), 1) << "duplicated yet";
  EXPECT_GE(AnsweredInside(L"POWERON", L"BLGET", L"BLSET"), 1);
}

TEST_F(Reentry, ALidOpenedWhileTheUiIsBeingToldThatItClosedEndsOpen) {
  constexpr std::uint32_t kClosed = 0, kOpened = 1, kDoNothing = 0;
  StartController();
  ASSERT_TRUE(Controller::NotifyPowerSetting(kLidCloseAction, kDoNothing) && StandInUi::Hang());
  Happens(L"the lid is closed, and opened while the UI hangs");
  ASSERT_TRUE(Controller::NotifyPowerSetting(kLidSwitchState, kClosed));
  EXPECT_TRUE(Traced(L"[DisplayChange] Send message to UI : POWEROFF"));
  EXPECT_TRUE(Controller::NotifyPowerSetting(kLidSwitchState, kOpened)) << "taken while the controller waits";
  StandInUi::Wake();
  EXPECT_EQ(UiWords(L"CLOSEMASK", 1), (std::vector<std::wstring>{L"POWEROFF", L"OPENMASK", L"POWERON", L"CLOSEMASK"}));
}

}  // namespace

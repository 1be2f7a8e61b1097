// Windows removes hooks without a word; the controller hooks again once it can tell.

#include "tests/drags.h"

namespace {

using namespace support;

class InputHooks : public testing::Test {
 protected:
  LaptopInUse laptop;

  void Touch() { laptop.touch.ReportFrom(laptop.touch.touchPad(), {17, 2, 1}); }
  void ExpectThrowDown() {
    const auto window = laptop.desktop.OpenInForeground({});
    DragOut(laptop, window, kPress, kAway);
    Reach(laptop, kDown);
    laptop.mouse.Drop();
    EXPECT_EQ(laptop.Area(window), kCPanel);
    laptop.desktop.Close(window);
  }
};

TEST_F(InputHooks, ComeBackWhenTheMachineWakesIsUnlockedOrLightsItsDisplay) {
  laptop.mouseHook.diesAtResume = laptop.keyboardHook.diesAtResume = true;
  laptop.mouseHook.diesAtUnlock = laptop.keyboardHook.diesAtUnlock = true;
  for (void (*happens)(Laptop&) :
       {+[](Laptop& on) { on.power.SleepAndWake(); }, +[](Laptop& on) { on.sessions.Unlock(); },
        +[](Laptop& on) {
          on.power.SetDisplay(Power::Display::Off);
          on.mouseHook.DiesNow(), on.keyboardHook.DiesNow();
          on.power.SetDisplay(Power::Display::On);
        }}) {
    laptop.Advance(1000);
    laptop.trace.Clear();
    happens(laptop);
    laptop.input.PressWinP();
    EXPECT_TRUE(LogsInOrder(laptop, {L"[Hooks] The keyboard was not heard of, it is hooked again \n",
                                     L"[Hooks] The mouse was not heard of, it is hooked again \n",
                                     L"[Win + P] -------- Start -------- \n"}));
    ExpectThrowDown();
  }
  const auto times = laptop.mouseHook.TimesHooked();
  laptop.power.SetDisplay(Power::Display::Off), laptop.power.SetDisplay(Power::Display::On);
  EXPECT_EQ(laptop.mouseHook.TimesHooked(), times) << "it was heard of just now";
}

TEST_F(InputHooks, ComeBackWhenTheyMissWhatMovesThePointerOrAWindow) {
  for (int twice = 0; twice < 2; ++twice) Touch();
  const auto times = laptop.mouseHook.TimesHooked();
  laptop.Advance(1);
  laptop.mouse.MoveTo(kPress);
  laptop.Advance(500);
  Touch();
  EXPECT_EQ(laptop.mouseHook.TimesHooked(), times) << "it told of the pointer's way";
  laptop.mouseHook.DiesNow();
  Touch();
  EXPECT_FALSE(laptop.mouseHook.IsAlive()) << "it may have had nothing to tell";
  laptop.mouse.MoveTo(kAway);
  Touch();
  EXPECT_TRUE(laptop.mouseHook.IsAlive());
  // Before a drag, by a call that took too long or with the button down: the drag is followed all the same.
  laptop.mouseHook.diesAtOverrun = 2;
  laptop.faults.Slow<&os::NowMs>(sim::Hook::kLimitMs + 1);
  for (const auto& to : {kAwayOnC, kPress}) {
    EXPECT_TRUE(laptop.mouseHook.IsAlive());
    laptop.mouse.MoveTo(to);
  }
  laptop.faults.ClearAll();
  EXPECT_FALSE(laptop.mouseHook.IsAlive());
  ExpectThrowDown();
  laptop.mouse.Press();
  laptop.mouseHook.DiesNow();
  laptop.mouse.Release();
  laptop.Advance(1000);
  ExpectThrowDown();
  // Within a drag: it ends without a throw.
  const auto window = laptop.desktop.OpenInForeground({});
  DragOut(laptop, window, kPress, kDown);
  laptop.mouseHook.DiesNow();
  laptop.mouse.Drop();
  EXPECT_TRUE(laptop.mouseHook.IsAlive() && laptop.desktop.Journal(window).empty());
  // With the window gone nothing tells of the end, but the next drag takes the overlay down.
  DragOut(laptop, window, kPress, kDown);
  laptop.desktop.Close(window);
  laptop.mouseHook.DiesNow();
  laptop.mouse.Drop();
  laptop.ui.ForgetReceived();
  laptop.Advance(1000);
  ExpectThrowDown();
  EXPECT_EQ(laptop.ui.Received().front(), L"WSPRESS");
}

}  // namespace

// Windows removes hooks without a word; the controller hooks again once it can tell.

#include "os/clock.h"
#include "os/input.h"
#include "tests/drags.h"

namespace {

using namespace support;

constexpr auto kKeyboardLine = L"[Hooks] The keyboard was not heard of, it is hooked again \n",
               kMouseLine = L"[Hooks] The mouse was not heard of, it is hooked again \n";

class InputHooks : public testing::Test {
 protected:
  LaptopInUse laptop;

  /// A throw that is all the hook hears of.
  void ExpectThrowDown() {
    const auto window = laptop.desktop.OpenInForeground({});
    laptop.Settle();
    DragOut(laptop, window, kPress, kAway);
    Reach(laptop, kDown);
    laptop.mouse.Drop();
    EXPECT_EQ(laptop.Area(window), kCPanel);
    laptop.desktop.Close(window);
  }
};

TEST_F(InputHooks, ComeBackWithAnyWitness) {
  struct Witness {
    void (*happens)(Laptop& laptop);
    bool alsoKeyboard = true;
  };
  for (const auto& [happens, alsoKeyboard] :
       {Witness{[](auto& on) { on.power.SleepAndWake(); }}, Witness{[](auto& on) { on.sessions.Unlock(); }},
        Witness{[](auto& on) {
          on.mouseHook.DiesNow(), on.keyboardHook.DiesNow();
          on.power.SetDisplay(Power::Display::Off), on.power.SetDisplay(Power::Display::On);
        }},
        Witness{[](auto& on) {
                  on.mouse.MoveTo(kPress);
                  on.touch.ReportFrom(on.touch.touchPad(), {17, 2, 1});
                  on.mouseHook.DiesNow();
                  on.Advance(1000);
                  on.input.Press(os::kKeyP);
                  on.touch.ReportFrom(on.touch.touchPad(), {17, 2, 2});
                  EXPECT_FALSE(on.mouseHook.IsAlive()) << "it may have had nothing to tell";
                  on.mouse.MoveTo(kAway);
                  on.touch.ReportFrom(on.touch.touchPad(), {17, 2, 3});
                },
                false}}) {
    laptop.mouseHook.diesAtResume = laptop.mouseHook.diesAtUnlock = true;
    laptop.keyboardHook.diesAtResume = laptop.keyboardHook.diesAtUnlock = true;
    laptop.Advance(1000);
    laptop.trace.Clear();
    happens(laptop);
    EXPECT_TRUE(laptop.mouseHook.IsAlive() && laptop.keyboardHook.IsAlive());
    EXPECT_TRUE(laptop.trace.Contains(kMouseLine));
    EXPECT_EQ(laptop.trace.Contains(kKeyboardLine), alsoKeyboard);
    ExpectThrowDown();
    laptop.input.PressWinP();
    EXPECT_TRUE(laptop.trace.Contains(L"[Win + P] -------- Start -------- \n"));
  }
}

TEST_F(InputHooks, ThatDiedBeforeADragFollowItAllTheSame) {
  laptop.mouse.MoveTo({300, 500});
  laptop.mouseHook.DiesNow();
  ExpectThrowDown();
  EXPECT_EQ(laptop.mouseHook.TimesHooked(), 2);
  // Or within one, so that its end was not heard.
  const auto window = laptop.desktop.OpenInForeground({});
  DragOut(laptop, window, kPress, kDown);
  laptop.mouseHook.DiesNow();
  laptop.mouse.Drop();
  EXPECT_TRUE(laptop.mouseHook.IsAlive() && laptop.desktop.Journal(window).empty());
  ExpectThrowDown();
}

TEST_F(InputHooks, AreLeftAloneWhileTheyAreHeardOf) {
  laptop.mouse.MoveTo(kAway);
  laptop.input.PressWinP();
  laptop.sessions.Unlock();
  ExpectThrowDown();
  laptop.mouse.Press();
  laptop.mouse.Release();
  EXPECT_TRUE(laptop.mouseHook.TimesHooked() == 1 && laptop.keyboardHook.TimesHooked() == 1);
}

TEST_F(InputHooks, HoldInputUpFor300MillisecondsAndDieAfterSomeOverruns) {
  for (const auto overruns : {11, 1}) {
    laptop.mouseHook.diesAtOverrun = overruns;
    laptop.faults.Slow<&os::NowMs>(400);
    for (int move = 1; move <= overruns; ++move) {
      EXPECT_TRUE(laptop.mouseHook.IsAlive());
      const os::Point to{100 + move, 500};
      {
        const auto quietly = laptop.Quietly();
        laptop.mouse.MoveTo(to);
        laptop.Advance(299);
        EXPECT_NE(laptop.mouse.At(), to);
        laptop.Advance(1);
        EXPECT_EQ(laptop.mouse.At(), to);
      }
      laptop.Settle();
    }
    EXPECT_FALSE(laptop.mouseHook.IsAlive());
    laptop.faults.ClearAll();
    ExpectThrowDown();
  }
}

}  // namespace

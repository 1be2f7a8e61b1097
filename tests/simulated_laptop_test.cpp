#include <memory>
#include <mutex>

#include "os/clock.h"
#include "os/desktop.h"
#include "os/hooks.h"
#include "os/input.h"
#include "os/messages.h"
#include "os/processes.h"
#include "os/threads.h"
#include "os/window_control.h"
#include "tests/support.h"

// The laptop itself, its windows and its mouse, seen through the door by threads that stand in for the controller's.

namespace {

using os::Rect;
using os::WindowEvent;
using sim::Laptop;
using support::Texts;
using Words = std::vector<std::string>;

Words gHeard;  // what the stand-in for the controller saw, in order

/// Starts a thread that sleeps and notes its name `rounds` times.
void StartNoter(const std::string& name, std::uint32_t sleepMs, int rounds) {
  os::StartThread(L"noter", [=] {
    for (int i = 0; i < rounds; ++i) {
      os::Sleep(sleepMs);
      gHeard.push_back(name);
    }
  });
}

class SimulatedLaptop : public testing::Test {
 protected:
  void SetUp() override { gHeard.clear(); }
};

using SimulatedTime = SimulatedLaptop;
using SimulatedEnd = SimulatedLaptop;

TEST_F(SimulatedTime, MovesToTheNextDeadlineWhenAllWaitAndNoFurtherThanAsked) {
  Laptop laptop;
  const auto start = laptop.NowMs();
  StartNoter("slow", 300'000, 1);
  StartNoter("quick", 100'000, 2);
  laptop.Advance(150'000);
  EXPECT_EQ(gHeard, Words{"quick"});
  EXPECT_EQ(laptop.NowMs(), start + 150'000);
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(gHeard, (Words{"quick", "quick", "slow"}));
  EXPECT_EQ(laptop.NowMs(), start + 300'000);
  StartNoter("poll", 100, 1'000'000);
  EXPECT_FALSE(laptop.Settle(1000)) << "gives up at its limit";
}

TEST_F(SimulatedTime, PassesForALoopThatPollsWithoutSleeping) {
  Laptop laptop;
  os::StartThread(L"spinner", [until = laptop.NowMs() + 3] {
    while (os::NowMs() < until) {
    }
    gHeard.push_back("done");
  });
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(gHeard, Words{"done"});
}

Words OrderOfRun(std::uint32_t seed) {
  gHeard.clear();
  Laptop laptop({.seed = seed, .interleaving = true});
  for (const auto* name : {"a", "b", "c", "d"}) StartNoter(name, 10, 5);
  laptop.Settle();
  return gHeard;
}

TEST_F(SimulatedTime, OneSeedIsOneRun) {
  const auto first = OrderOfRun(7);
  EXPECT_EQ(first.size(), 20U);
  EXPECT_EQ(OrderOfRun(7), first);
  EXPECT_NE(OrderOfRun(8), first);
}

TEST_F(SimulatedEnd, UnwindsThreadsWhereverTheyAreStuck) {
  static os::Lock lock;
  struct Farewell {
    ~Farewell() { gHeard.push_back("unwound"); }
  };
  {
    Laptop laptop({.uiRunning = true});
    laptop.ui.Hang();
    os::StartThread(L"holder", [] {
      const Farewell farewell;
      const std::lock_guard hold(lock);
      os::SendCopyData(os::FindTopWindow(L"Tessaview"), 102, {});  // never answered
    });
    laptop.Settle();
    os::StartThread(L"waiter", [] {
      const Farewell farewell;
      const std::lock_guard hold(lock);
      gHeard.push_back("never");
    });
    laptop.Settle(5000);
    EXPECT_TRUE(gHeard.empty());
  }
  EXPECT_EQ(gHeard, (Words{"unwound", "unwound"}));

  Laptop next;  // the lock is free again
  os::StartThread(L"taker", [] {
    const std::lock_guard hold(lock);
    gHeard.push_back("taken");
  });
  EXPECT_TRUE(next.Settle());
  EXPECT_EQ(gHeard.back(), "taken");
}

TEST(SimulatedThreadsDeathTest, WhatBelongsToTheMainThreadIsTouchedByNoOther) {
  const auto touch = [](const wchar_t* thread) {
    Laptop laptop;
    os::ExpectMainThread();  // the test's own may
    os::StartThread(thread, os::ExpectMainThread);
    laptop.Settle();
  };
  touch(L"main");
  EXPECT_DEATH(touch(L"Win+P"), "belongs to the main thread, and was touched by \"Win\\+P\"");
}

/// Runs something as a thread of the controller's. False when it still waits in the end.
bool RunsThrough(Laptop& laptop, const std::function<void()>& body) {
  const auto returned = std::make_shared<bool>(false);
  os::StartThread(L"controller", [=] {
    body();
    *returned = true;
  });
  laptop.Settle();
  return *returned;
}

TEST(SimulatedWindows, AWindowThatHangsHoldsTheCallerUp) {
  Laptop laptop;
  const auto window = laptop.desktop.Open({.responsive = false});
  const auto start = laptop.NowMs();
  EXPECT_TRUE(RunsThrough(laptop, [&] {
    EXPECT_FALSE(os::AnswersWithin(window, 500) || os::AskToClose(window, 500));
    EXPECT_EQ(os::NowMs(), start) << "held for hung";
    os::AwaitInputIdle(*os::OpenToAwaitIdle(os::WindowProcessId(window)), 500);
    EXPECT_EQ(os::NowMs(), start + 500);
  }));
  laptop.After(200, [&] { laptop.desktop.Find(window)->responsive = true; });
  laptop.desktop.Find(window)->onChange = [&](auto self) { laptop.desktop.Close(self); };
  EXPECT_TRUE(RunsThrough(laptop, [&] {
    EXPECT_EQ(os::MoveWindow(window, 0, 0, 10, 10).error(), 1400U) << "it dies while it is moved";
    EXPECT_EQ(os::NowMs(), start + 700);
  }));
  const auto stuck = laptop.desktop.Open({.responsive = false, .owner = laptop.desktop.Open({})});
  EXPECT_FALSE(RunsThrough(laptop, [stuck] { (void)os::SetTopmost(stuck, true); }));
  EXPECT_TRUE(os::TerminateProcess(*os::OpenToEnd(os::WindowProcessId(stuck)), 1));
  EXPECT_FALSE(os::IsWindow(stuck));
}

TEST(SimulatedMouse, TellsItsWatcherFirstAndTheWindowsWatcherAfterwards) {
  Laptop laptop;
  static Texts heard;
  heard.clear();
  os::StartThread(L"mouse", [] {
    os::WatchMouse([](os::MouseEvent event, os::Point pointer) {
      const auto cursor = os::CursorPosition();
      heard.push_back(std::to_wstring(static_cast<int>(event)) + L" " + std::to_wstring(pointer.x) + L" was " +
                      std::to_wstring(cursor.x));
    });
  });
  os::StartThread(L"windows", [] {
    os::WatchWindowEvents(WindowEvent::MoveSizeStart, WindowEvent::LocationChange, [](auto event, auto, auto object) {
      if (object == os::kObjectWindow)
        heard.push_back(event == WindowEvent::LocationChange ? L"moved"
                        : event == WindowEvent::MoveSizeEnd  ? L"end"
                                                             : L"start");
    });
  });
  laptop.Settle();
  const auto window = laptop.desktop.OpenInForeground({});
  laptop.mouse.Grab(window, {600, 110});
  laptop.mouse.MoveTo({5000, 130});
  laptop.mouse.Drop();
  EXPECT_EQ(heard, (Texts{L"0 600 was 960", L"1 600 was 600", L"start", L"0 5000 was 600", L"moved", L"2 1919 was 1919",
                          L"end"}));
  EXPECT_EQ(os::WindowRect(window), (Rect{1519, 120, 2519, 820}));

  laptop.mouse.GrabBorder(window, {1900, 810});
  laptop.mouse.Glide({1800, 700});
  EXPECT_EQ(os::WindowRect(window), (Rect{1519, 120, 2419, 710}));
  laptop.mouse.CancelDrag();
  EXPECT_TRUE(laptop.mouse.IsPressed());
  EXPECT_EQ(os::WindowRect(window), (Rect{1519, 120, 2519, 820}));
}

}  // namespace

// What follows a change of the displays: Win+P, docking, folding over.

#include "power/win_p_watch.h"
#include "tests/support.h"
#include "windows/full_screen.h"

namespace {

using namespace support;

constexpr auto kWinPStart = L"[Win + P] -------- Start -------- \n";

TEST(DisplayChange, APanelThatWasMovedOrTurnedComesBackWithoutFlickerButNotDuringAFullScreenProgram) {
  RunningLaptop laptop({.uiRunning = true});
  auto& c = laptop.displays.cPanel();
  c.Rotate(0);
  c.MoveTo(1920, 300);
  laptop.displays.Changed();
  EXPECT_EQ(c.Area(), kCPanel);
  EXPECT_EQ(c.orientation, 3u);
  EXPECT_LE(laptop.displays.SettingsChanges().size(), 2u);
  EXPECT_EQ(LastTold(laptop), L"POWERON");
  ForgetTheStory(laptop);
  laptop.desktop.OpenInForeground({.className = L"Game", .area = kBPanel, .style = os::kWsPopup | os::kWsVisible});
  c.MoveTo(1920, 0);
  laptop.displays.Changed();
  EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
}

TEST(DisplayChange, AfterAFlipTheBPanelIsSetUprightWhenTheSystemTurnsItLate) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.hotKey.FlipChanged();
  auto& b = laptop.displays.bPanel();
  b.Rotate(1);
  laptop.displays.Changed();
  EXPECT_EQ(b.orientation, 1u) << "as the user holds it";
  b.Rotate(0);
  laptop.faults.Slow<&os::SendCopyData>(50);  // between the search, which sees it upright, and the work-around
  laptop.After(25, [&] { b.Rotate(1); });
  laptop.displays.Changed();
  EXPECT_EQ(b.Area(), kBPanel);
  EXPECT_EQ(b.orientation, 0u);
}

TEST(WinP, BringsBackAPanelThatIsOffAndWanted) {
  for (const auto status : {Firmware::kPanelOff, Firmware::kPanelOff | 1, Firmware::kPanelOn}) {
    for (const auto* const saved : {L"On", L"Off"}) {
      const bool comesBack = status == Firmware::kPanelOff && std::wstring(saved) == L"On";
      RunningLaptop laptop({.saved = saved, .uiRunning = true});
      laptop.firmware.SetRegister(Firmware::kPower, status);
      laptop.displays.Project(Topology::Clone);
      laptop.input.PressWinP();
      EXPECT_EQ(laptop.displays.topology, comesBack ? Topology::Extend : Topology::Clone);
      EXPECT_FALSE(tessaview::ClaimWin_P_WindowMoveFlag());
    }
  }
}

TEST(WinP, NeverHoldsUpTheKeyboard) {
  RunningLaptop laptop;
  laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
  laptop.faults.Slow<&os::ChangeDisplayConfiguration>(5000);
  laptop.faults.Slow<&os::Control>(500);
  {
    const auto quietly = laptop.Quietly();
    for (int times = 0; times < 3; ++times) laptop.input.PressWinP();
  }
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(laptop.keyboardHook.LongestHoldUpMs(), 0u);
  const auto served = laptop.trace.Count(kWinPStart);
  EXPECT_TRUE(served == 2 || served == 3) << "press and release in turn; a key that is held does no more";
  laptop.trace.Clear();
  laptop.input.Press('P');  // alone, as in a text
  EXPECT_EQ(laptop.trace.Count(kWinPStart), 0u);
}

TEST(FullScreen, IsTheWholePrimaryDisplayWithoutACaption) {
  Laptop laptop;
  for (const auto& [className, area, full] : {std::tuple(L"Game", kBPanel, true),
                                              {L"Game", {0, 0, 1920, 1040}, false},
                                              {L"Game", {-8, -8, 1928, 1088}, true},
                                              {L"WorkerW", {-8, 0, 1920, 1080}, true},
                                              {L"WorkerW", {0, -8, 1920, 1080}, true},
                                              {L"WorkerW", {0, 0, 1928, 1080}, true},
                                              {L"WorkerW", {0, 0, 1920, 1088}, true},
                                              {L"WorkerW", {-8, -8, 1928, 1072}, false},
                                              {L"#32770", kBPanel, true},
                                              {L"#32770", {100, 0, 2020, 1080}, false},
                                              {L"AcrobatSDIWindow", kAnywhere, true}}) {
    const auto window = laptop.desktop.Open({.className = className, .area = area, .style = os::kWsPopup});
    EXPECT_EQ(tessaview::IsFullScreenWindow(window), full)
        << testing::PrintToString(className) << " " << area.left << " " << area.bottom;
  }
  const auto captioned = laptop.desktop.Open({.area = kBPanel, .style = os::kWsCaption});
  EXPECT_FALSE(tessaview::IsFullScreenWindow(captioned) || tessaview::IsFullScreenWindow(laptop.desktop.Shell()));
}

}  // namespace

// What follows a change of the displays: Win+P, docking, folding over, a machine in a shop.

#include "os/messages.h"
#include "power/win_p_watch.h"
#include "tests/support.h"
#include "windows/full_screen.h"

namespace {

using namespace support;

TEST(DisplayChange, APanelThatWasMovedOrTurnedComesBackWithoutFlicker) {
  for (const std::uint32_t orientation : {0U, 1U, 2U, 3U}) {
    RunningLaptop laptop({.uiRunning = true});
    auto& c = laptop.displays.cPanel();
    c.Rotate(orientation);
    c.MoveTo(1920, 300);
    laptop.displays.Changed();
    EXPECT_EQ(c.Area(), (os::Rect{0, 1080, 1920, 1595}));
    EXPECT_EQ(c.orientation, 3u);
    EXPECT_LE(laptop.displays.SettingsChanges().size(), 2u);
    EXPECT_EQ(LastTold(laptop), L"POWERON");

    ForgetTheStory(laptop);
    laptop.displays.Changed();
    EXPECT_TRUE(laptop.displays.SettingsChanges().empty()) << "nothing is wrong";
  }
}

TEST(DisplayChange, AFullScreenProgramIsNotDisturbed) {
  RunningLaptop laptop;
  laptop.desktop.OpenInForeground({.className = L"Game", .area = {0, 0, 1920, 1080}, .style = 0x9000'0000});
  laptop.displays.cPanel().MoveTo(1920, 0);
  laptop.displays.Changed();
  EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
}

TEST(DisplayChange, AfterAFlipTheBPanelIsSetUprightWhenTheSystemTurnsItLate) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.hotKey.FlipChanged();
  ForgetTheStory(laptop);
  laptop.displays.bPanel().Rotate(1);
  laptop.displays.Changed();
  EXPECT_TRUE(laptop.trace.Contains(L"BPanelDisplayOrientation = DMDO_90 \n"));
  EXPECT_EQ(laptop.displays.bPanel().orientation, 1u) << "as the user holds it";
  laptop.displays.bPanel().Rotate(0);
  laptop.faults.Slow<&os::SendCopyData>(50);  // between the search, which sees it upright, and the work-around
  laptop.After(25, [&] { laptop.displays.bPanel().Rotate(1); });
  laptop.displays.Changed();
  EXPECT_EQ(laptop.displays.bPanel().Area(), (os::Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(laptop.displays.bPanel().orientation, 0u);
  EXPECT_TRUE(
      LogsInOrder(laptop, {L"BPanelDisplayOrientation = DMDO_DEFAULT \n", L"Work around Yoga Orientation Issue \n",
                           L"B Panel Orientation DMDO_DEFAULT set again \n"}));
}

TEST(WinP, BringsBackAPanelThatIsOffAndWanted) {
  using Case = std::tuple<std::uint32_t, const wchar_t*, int>;
  for (const auto& [status, saved, resets] : {Case{Firmware::kPanelOff, L"On", 2},
                                              {Firmware::kPanelOff, L"Off", 0},
                                              {Firmware::kPanelOff | 1, L"On", 0},
                                              {Firmware::kPanelOn, L"On", 0}}) {
    SCOPED_TRACE(testing::Message() << status << " " << testing::PrintToString(saved));
    RunningLaptop laptop({.uiRunning = true});
    laptop.firmware.SetRegister(Firmware::kPower, status);
    laptop.settings.Set(L"Tessaview", saved);
    laptop.displays.Project(Topology::Clone);
    laptop.input.PressWinP();
    EXPECT_EQ(laptop.trace.Count(L"[Win + P] -------- Start -------- \n"), 2u) << "for the press and the release";
    EXPECT_EQ(laptop.trace.Count(L"[Timestamp] ReSetTessaviewMode \n"), static_cast<std::size_t>(resets));
    if (resets > 0) {
      EXPECT_EQ(laptop.displays.topology, Topology::Extend);
      EXPECT_TRUE(laptop.trace.Contains(L"[MoveCPanelMonitorOnePixel] isExtendMode + Win_P_WindowMoveFlag = true"));
      EXPECT_FALSE(tessaview::ClaimWin_P_WindowMoveFlag());
      EXPECT_EQ(laptop.displays.cPanel().Area(), (os::Rect{0, 1080, 1920, 1595}));
    }
  }
}

TEST(WinP, SeesTheModeInForceWhateverElseLooksAtIt) {
  for (unsigned seed = 1; seed <= 30; ++seed) {
    RunningLaptop laptop({.seed = seed, .interleaving = true, .saved = L"On", .generation = 1, .uiRunning = true});
    laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
    ForgetTheStory(laptop);
    laptop.faults.Slow<&os::QueryDisplayConfiguration>(20);
    {
      const auto quietly = laptop.Quietly();
      laptop.displays.Changed();
      laptop.displays.Changed();
      laptop.input.PressWinP();
    }
    laptop.Settle();
    EXPECT_TRUE(laptop.trace.Contains(L"[Timestamp] Extend, set power on, set extend \n")) << "seed " << seed;
  }
}

TEST(WinP, NeverHoldsUpTheKeyboard) {
  RunningLaptop laptop;
  ASSERT_TRUE(laptop.input.IsWatched());
  laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
  laptop.faults.Slow<&os::ChangeDisplayConfiguration>(5000);
  laptop.faults.Slow<&os::Control>(500);
  {
    const auto quietly = laptop.Quietly();
    for (int times = 0; times < 3; ++times) laptop.input.PressWinP();
  }
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(laptop.input.LongestHoldUpMs(), 0u);
  const auto served = laptop.trace.Count(L"[Win + P] -------- End -------- \n");
  EXPECT_TRUE(served == 2 || served == 3) << "press and release in turn; a key that is held does no more";

  ForgetTheStory(laptop);
  laptop.input.Press('P');  // alone, as in a text
  EXPECT_EQ(laptop.trace.Count(L"[Win + P] -------- Start -------- \n"), 0u);
}

TEST(F6, OnBringsThePanelBack) {
  RunningLaptop laptop({.saved = L"Off", .generation = 1, .uiRunning = true});  // whose C panel is not listed as such
  laptop.displays.Project(Topology::Clone);
  laptop.displays.Changed();
  laptop.events.Signal(sim::KernelObjects::kPowerEvent, false);
  laptop.hotKey.UseF6(3);
  EXPECT_TRUE(laptop.firmware.PanelOn());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On");
  EXPECT_EQ(laptop.displays.topology, Topology::Extend);
  EXPECT_TRUE(laptop.events.Signalled(sim::KernelObjects::kPowerEvent));
  EXPECT_GT(TimesTold(laptop, L"CLOSEMASK"), 0);
  EXPECT_EQ(LastTold(laptop), L"POWERON") << "once the displays have changed";
}

TEST(RetailDemo, ExtendsADuplicatedDesktopAfterThreeMinutes) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.services.Set(L"RetailDemo", sim::Services::kRunning);
  laptop.displays.UserProjects(Topology::Clone);
  EXPECT_EQ(laptop.window.TimerPeriod(9528), 180'000u);
  laptop.Advance(170'000);
  EXPECT_EQ(laptop.displays.topology, Topology::Clone);
  laptop.Advance(20'000);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend);
  EXPECT_EQ(laptop.input.LeftClicks(), 1);
  EXPECT_FALSE(laptop.window.TimerPeriod(9528));
  EXPECT_FALSE(laptop.apps.Activations().empty());
}

TEST(FullScreen, IsTheWholePrimaryDisplayWithoutACaption) {
  using Case = std::tuple<const wchar_t*, os::Rect, std::uint32_t, bool>;
  constexpr std::uint32_t kPopup = 0x9000'0000, kCaptioned = 0x00CF'0000;
  for (const auto& [className, area, style, full] :
       {Case{L"Game", {0, 0, 1920, 1080}, kPopup, true}, Case{L"Game", {0, 0, 1920, 1080}, kCaptioned, false},
        Case{L"Game", {0, 0, 1920, 1040}, kPopup, false}, Case{L"Game", {-8, -8, 1928, 1088}, kPopup, true},
        Case{L"WorkerW", {-8, 0, 1920, 1080}, kPopup, true}, Case{L"#32770", {0, 0, 1920, 1080}, kPopup, true},
        Case{L"#32770", {100, 0, 2020, 1080}, kPopup, false},
        Case{L"AcrobatSDIWindow", {100, 100, 200, 200}, kPopup, true},
        Case{L"Game", {0, 1080, 1920, 1595}, kPopup, false}}) {
    sim::Laptop laptop;
    const auto window = laptop.desktop.Open({.className = className, .area = area, .style = style});
    EXPECT_EQ(tessaview::IsFullScreenWindow(window), full)
        << testing::PrintToString(className) << " " << area.left << " " << area.bottom;
  }
  sim::Laptop laptop;
  EXPECT_FALSE(tessaview::IsFullScreenWindow(laptop.desktop.Shell()));
}

}  // namespace

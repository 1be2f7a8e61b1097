// What comes and goes around the controller: packages, hibernation, the secure desktop, the touch screen.

#include "os/watches.h"
#include "tests/support.h"
#include "touch/touch_screen_check.h"

namespace {

using namespace support;

TEST(PackageWatch, LaunchesAUiThatHasJustBeenInstalled) {
  sim::Laptop laptop({.uiInstalled = false});
  laptop.Boot();
  laptop.Advance(60'000);
  EXPECT_TRUE(laptop.apps.Activations().empty());
  laptop.faults.Fail<&os::SessionUserToken>({.times = 1});
  laptop.apps.InstallUi();
  EXPECT_FALSE(laptop.ui.Running()) << "the check could not be made";
  laptop.apps.InstallUi();
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_EQ(laptop.apps.Activations().size(), 1U);
}

TEST(PackageWatch, RefreshesThePanelsAndLeavesTheRestAlone) {
  using Case = std::tuple<const char*, void (*)(sim::Laptop&)>;
  for (const auto& [what, change] :
       {Case{"removed", [](auto& laptop) { laptop.apps.RemoveUi(); }},
        {"installed, and its guide is open", [](auto& laptop) { laptop.ui.OpenGuide(), laptop.apps.InstallUi(); }},
        {"installed, and it runs", [](auto& laptop) { laptop.ui.Start(), laptop.apps.InstallUi(); }},
        {"installed, and its check fails", [](auto& laptop) {
           laptop.processes[sim::Laptop::kCheckTool].first = {3, 3, 3};
           laptop.apps.InstallUi();
         }}}) {
    SCOPED_TRACE(what);
    RunningLaptop laptop({.saved = L"On"});
    laptop.ui.Die();
    const auto activations = laptop.apps.Activations().size();
    ForgetTheStory(laptop);
    change(laptop);
    EXPECT_TRUE(laptop.trace.Contains(L"EnumDisplayDevice Start"));
    EXPECT_EQ(laptop.apps.Activations().size(), activations);
  }
}

TEST(PackageWatch, TakesTheManyEntriesOfOneInstallationForOne) {
  RunningLaptop laptop({.saved = L"On"});
  laptop.ui.Die();
  const auto checks = laptop.processes.StartsOf(sim::Laptop::kCheckTool);
  for (int entry = 0; entry < 50; ++entry) {
    laptop.After(10 * entry, [&laptop, entry] {
      laptop.registry.SetText(std::wstring(sim::Registry::kPackages) + L"\\A", std::to_wstring(entry), L"x");
    });
  }
  laptop.processes[sim::Laptop::kCheckTool].exitCode = 0;
  laptop.Advance(60'000);
  EXPECT_LE(laptop.processes.StartsOf(sim::Laptop::kCheckTool) - checks, 2U);
}

TEST(ResumeWatch, PutsPanelsTouchAndFirmwareRightAfterHibernationAndTellsTheUi) {
  for (const bool isG2 : {true, false}) {
    RunningLaptop laptop({.saved = L"On", .generation = isG2 ? 2 : 1, .uiRunning = true});
    laptop.power.SetSchemeLidAction(true, 0);
    laptop.power.HibernateAndWake();
    EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 1);
    EXPECT_TRUE(laptop.trace.Contains(L"EnumDisplayDevice Start"));
    EXPECT_EQ(laptop.touch.NodeSwitches().size(), 4U) << "at start, and now, off and on";
    EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
    EXPECT_EQ(laptop.trace.Contains(L"[LidClosedAction] Lid off - Do nothing\n"), isG2);
  }
}

TEST(ResumeWatch, AHungUiHoldsNobodyUp) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  laptop.ui.Hang();
  laptop.power.HibernateAndWake();
  laptop.ui.Recover();
  EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 1);
}

TEST(DesktopWatch, TellsTheUiOfTheSecureDesktopAndOfItsEndOnce) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.sessions.ShowSecureDesktop();
  laptop.sessions.ShowSecureDesktop();
  EXPECT_EQ(laptop.ui.Received(), (Texts{L"UACENTRY"}));
  laptop.ui.Hang();
  laptop.sessions.HideSecureDesktop();
  laptop.sessions.ShowSecureDesktop();
  laptop.ui.Recover();
  laptop.sessions.HideSecureDesktop();
  EXPECT_EQ(laptop.ui.Received(), (Texts{L"UACENTRY", L"UACEXIT"})) << "a text that times out is lost";
}

TEST(TouchScreenCheck, KeepsTheUiAwayOnlyWhenTheControllerIsThereWithoutItsScreen) {
  using Case = std::tuple<const char*, void (*)(sim::TouchController&), bool>;
  for (const auto& [what, arrange, isWrong] :
       {Case{"healthy", [](auto&) {}, false},
        {"no screen", [](auto& touch) { touch.touchScreen().plugged = false; }, true},
        {"no controller", [](auto& touch) { touch.Unplug(); }, false},
        {"a collection is kept by somebody else",
         [](auto& touch) { touch.touchScreen().plugged = false, touch.touchPad().exclusive = true; }, false},
        {"a collection without an answer",
         [](auto& touch) { touch.touchScreen().plugged = false, touch.modeSwitch().hasPreparsedData = false; }, false},
        {"a path that cannot be read",
         [](auto& touch) {
           touch.touchScreen().plugged = false;
           touch.mouse().detail = os::HidInterface::Detail::NoData;
         },
         false}}) {
    SCOPED_TRACE(what);
    sim::Laptop laptop;
    arrange(laptop.touch);
    tessaview::CheckTouchScreenHid();
    EXPECT_EQ(tessaview::gTouchScreenHidWrong(), isWrong);
  }
}

}  // namespace

// What comes and goes around the controller: packages, hibernation, the secure desktop, the touch screen.

#include "tests/support.h"
#include "touch/touch_screen_check.h"

namespace {

using namespace support;

TEST(PackageWatch, LaunchesAUiThatHasJustBeenInstalled) {
  Laptop laptop({.uiInstalled = false});
  laptop.Boot();
  laptop.faults.Fail<&os::SessionUserToken>({.times = 1});
  laptop.apps.InstallUi();
  EXPECT_FALSE(laptop.ui.Running()) << "the check could not be made";
  EXPECT_TRUE(laptop.trace.Contains(L" CreateProcessWithUserLevel Fail \n"));
  laptop.apps.InstallUi();
  EXPECT_TRUE(laptop.ui.Running());
  EXPECT_EQ(laptop.apps.Activations().size(), 1U);
}

TEST(PackageWatch, RefreshesThePanelsAndLeavesTheRestAlone) {
  struct Case {
    void (*change)(Laptop&);
    bool setupComplete = true;
  };
  for (const auto& [change, setupComplete] :
       {Case{[](auto& laptop) { laptop.apps.RemoveUi(); }},
        Case{[](auto& laptop) { laptop.ui.OpenGuide(), laptop.apps.InstallUi(); }},
        Case{[](auto& laptop) { laptop.apps.InstallUi(); }, false}}) {
    RunningLaptop laptop({.saved = L"On", .setupComplete = setupComplete});
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
  const auto checks = laptop.processes.StartsOf(Laptop::kCheckTool);
  for (auto entry = 0U; entry < 50; ++entry) {
    laptop.After(10 * entry, [&laptop, entry] {
      laptop.registry.SetText(std::wstring(sim::Registry::kPackages) + L"\\A", std::to_wstring(entry), L"x");
    });
  }
  laptop.processes[Laptop::kCheckTool].exitCode = 0;
  laptop.Advance(60'000);
  EXPECT_LE(laptop.processes.StartsOf(Laptop::kCheckTool) - checks, 2U);
}

TEST(ResumeWatch, PutsPanelsTouchAndFirmwareRightAfterHibernationAndTellsTheUi) {
  for (const auto& [generation, onMains] : {std::pair(1, true), {2, true}, {2, false}}) {
    const bool isOff = generation == 1;
    RunningLaptop laptop({.saved = isOff ? L"Off" : L"On", .generation = generation, .uiRunning = true});
    if (!onMains) laptop.power.Unplug(), laptop.firmware.ForgetRequests();
    laptop.power.SetSchemeLidAction(onMains, 0);
    laptop.power.SetSchemeLidAction(!onMains, 2);
    laptop.power.restMs = 60'000;
    {
      const auto quietly = laptop.Quietly();
      for (const auto touchLateMs : {sim::kNever, 30'000U}) laptop.power.HibernateAndWake(touchLateMs);
      laptop.Advance(5000);
    }
    EXPECT_TRUE(laptop.trace.Contains(L"EnumDisplayDevice Start"));
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kLidCloseAction), generation == 2 ? (Words{0, 0}) : Words{});
    EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 2) << "the touch controller is still away";
    laptop.firmware.SetRegister(Firmware::kPower, isOff ? Firmware::kPanelOn : Firmware::kPanelOff);
    laptop.ui.Hang();  // which holds nobody up
    laptop.Advance(60'000);
    EXPECT_NE(laptop.firmware.PanelOn(), isOff);
    EXPECT_EQ(laptop.touch.InCursorMode(), isOff);
    EXPECT_TRUE(laptop.touch.RawInputReaches(0x0D));
    laptop.ui.Recover();
    laptop.power.SleepAndWake();
    EXPECT_EQ(TimesTold(laptop, L"IAMBACK"), 2) << "not after a sleep";
  }
}

TEST(DesktopWatch, TellsTheUiOfTheSecureDesktopAndOfItsEndOnce) {
  RunningLaptop laptop({.uiRunning = true});
  laptop.sessions.ShowSecureDesktop();
  laptop.sessions.ShowSecureDesktop();
  EXPECT_EQ(laptop.ui.Received(), (Texts{L"UACENTRY"}));
  laptop.sessions.HideSecureDesktop();
  EXPECT_EQ(laptop.ui.Received(), (Texts{L"UACENTRY", L"UACEXIT"}));
}

TEST(TouchScreenCheck, KeepsTheUiAwayOnlyWhenTheControllerIsThereWithoutItsScreen) {
  struct Case {
    void (*arrange)(sim::TouchController& touch);
    bool hasScreen = false, isWrong = false;
  };
  for (const auto& each :
       {Case{.arrange = [](auto&) {}, .hasScreen = true}, Case{.arrange = [](auto&) {}, .isWrong = true},
        Case{.arrange = [](auto& touch) { touch.Unplug(); }},
        Case{.arrange = [](auto& touch) { touch.touchPad().exclusive = true; }},
        Case{.arrange = [](auto& touch) { touch.mouse().detail = os::HidInterface::Detail::NoData; }}}) {
    Laptop laptop;
    laptop.touch.touchScreen().plugged = each.hasScreen;
    each.arrange(laptop.touch);
    tessaview::CheckTouchScreenHid();
    EXPECT_EQ(tessaview::gTouchScreenHidWrong(), each.isWrong);
  }
}

}  // namespace

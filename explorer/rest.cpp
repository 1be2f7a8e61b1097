#include "explorer/rest.h"

namespace explorer {
namespace {

using sim::KernelObjects, sim::Power;

constexpr std::uint64_t kMinuteMs = 60'000;

void BringEverythingBack(Life& laptop) {
  laptop.faults.ClearAll();
  laptop.ui.Recover();
  laptop.ui.HandleFor(0);
  for (const auto window : laptop.Opened()) {
    if (auto* const found = laptop.desktop.Find(window)) found->responsive = true;
  }
  laptop.events.Add(KernelObjects::kPowerEvent);
  laptop.events.Add(KernelObjects::kSwitchingEvent);
  laptop.services.Set(L"RetailDemo", sim::Services::kStopped);
  laptop.trace.Listen(true);
  laptop.firmware.driverInstalled = true;
  laptop.firmware.replyBytes = 4;
  laptop.firmware.panelLeavesWhenOff = true;
  laptop.touch.rawListLateMs = 0;
  for (auto* const collection : {&laptop.touch.touchPad(), &laptop.touch.modeSwitch(), &laptop.touch.touchScreen()}) {
    collection->heldByAnother = false;
    collection->takesReportMs = 0;
    collection->enabled = true;  // a reset that was cut short leaves it switched off
  }
  laptop.mouse.Release();
  laptop.displays.wallpaperPaths.reset();
  laptop.apps.uiOpensGuide = false;
  laptop.ui.CloseGuide();  // beside it the main window is told nothing
  laptop.apps.shellAnswer = 42;
}

void BringUserBack(Life& laptop) {
  laptop.sessions.FinishSetup();
  laptop.sessions.HideSecureDesktop();
  laptop.sessions.IsPutBack();
  laptop.sessions.Unlock();
  laptop.power.OpenLid();
  laptop.power.Plug();
  laptop.power.BatterySaver(false);
  laptop.desktop.SetForeground(laptop.desktop.Shell());  // beside a full screen the panel is left as it is
  laptop.apps.InstallUi();
}

void BringDisplaysBack(Life& laptop) {
  auto& c = laptop.displays.cPanel();
  c.Plug();
  c.Attach();
  for (auto* const panel : {&c, &laptop.displays.bPanel()}) {
    panel->Rotate(0);
    panel->width = panel->nativeWidth, panel->height = panel->nativeHeight;
  }
  laptop.displays.UserProjects(os::Topology::Extend);
  laptop.power.SetDisplay(Power::Display::Off);
  laptop.power.SetDisplay(Power::Display::On);
}

/// What has left the bus is looked for after a hibernation.
void BringTouchBack(Life& laptop) {
  if (laptop.touchLeft) laptop.power.HibernateAndWake();
}

/// He leaves the panel as this user did not have it.
void AnotherUserComesAndGoes(Life& laptop) {
  using sim::Firmware;
  laptop.sessions.SwitchAway();
  laptop.firmware.SetRegister(Firmware::kPower, laptop.firmware.PanelOn() ? Firmware::kPanelOff : Firmware::kPanelOn);
  laptop.sessions.SwitchBack();
}

/// The one is still being dealt with when the other comes.
void OpenLidRightBehindClosing(Life& laptop) {
  const auto atTheSameTime = laptop.Quietly();
  laptop.power.CloseLid();
  laptop.power.OpenLid();
}

void DoLastDeed(Life& laptop, int deed) {
  switch (deed) {
    case 0:
    case 1:
      laptop.hotKey.PressF6();
      return laptop.EndF6(2 + deed);
    case 2:
      return OpenLidRightBehindClosing(laptop);
    case 3:
      laptop.sessions.Lock();
      return laptop.sessions.Unlock();
    case 4:
      return laptop.power.SleepAndWake();
    case 5:
      return laptop.power.HibernateAndWake(700);
    case 6:
      laptop.displays.cPanel().Rotate(3);
      laptop.displays.cPanel().MoveTo(400, 1300);
      return laptop.displays.Changed();
    case 7:
      return AnotherUserComesAndGoes(laptop);
    default:
      return laptop.displays.UserProjects(laptop.displays.topology);
  }
}

}  // namespace

void ComeToRest(Life& laptop, bool startAgain, int lastDeed) {
  BringEverythingBack(laptop);
  laptop.Settle();
  BringUserBack(laptop);
  BringTouchBack(laptop);
  BringDisplaysBack(laptop);
  if (startAgain || laptop.ExitCode()) {
    laptop.Restart();
  }
  laptop.UiStarts();
  laptop.ui.Send(L"ALIVE");
  laptop.displays.Changed();      // a UI that has just come is told of the panel with the next thing that happens
  laptop.Advance(7 * kMinuteMs);  // a shop's timers and the UI's watchdog have come to their ends
  laptop.NoteLayout();
  DoLastDeed(laptop, lastDeed);
  laptop.Advance(30'000);
  laptop.NoteLayout();
}

}  // namespace explorer

#include "explorer/stimuli.h"

#include "os/input.h"

namespace explorer {
namespace {

using os::Bytes;
using sim::Edge, sim::Firmware, sim::KernelObjects, sim::Power;
using Texts = std::vector<std::wstring>;
using enum os::Topology;

constexpr os::Topology kProjections[] = {Internal, Clone, Extend, External};
constexpr const wchar_t* kSettings[] = {L"Tessaview", L"Backlight", L"BacklightDC"};
constexpr std::uint8_t kBytes[] = {0, 1, 2, 4, 0xFF};
constexpr const wchar_t* kEventsOfOthers[] = {KernelObjects::kPowerEvent, KernelObjects::kSwitchingEvent};

// What happens stands there as words, too.
#define HAPPENS(...) \
#__VA_ARGS__,      \
      [](Life & laptop, [[maybe_unused]] int a, [[maybe_unused]] int b, [[maybe_unused]] int c) { __VA_ARGS__; }

constexpr Stimulus kStimuli[] = {
    // ---- displays ----
    {4, {}, HAPPENS(laptop.displays.Dock(laptop.monitor))},
    {3, {}, HAPPENS(laptop.displays.Undock(laptop.monitor))},
    {4, {4}, HAPPENS(laptop.displays.UserProjects(kProjections[a]))},
    {3, {4}, HAPPENS(laptop.displays.cPanel().Rotate(a); laptop.displays.Changed())},
    {2, {4}, HAPPENS(laptop.displays.bPanel().Rotate(a); laptop.displays.Changed())},
    {2, {3000, 3000}, HAPPENS(laptop.displays.cPanel().MoveTo(a - 1000, b); laptop.displays.Changed())},
    {1, {3000, 3000}, HAPPENS(laptop.displays.bPanel().MoveTo(a, b); laptop.displays.Changed())},
    {2, {}, HAPPENS(laptop.displays.cPanel().Unplug(); laptop.displays.Changed())},
    {2, {}, HAPPENS(laptop.displays.cPanel().Plug(); laptop.displays.Changed())},
    {1, {}, HAPPENS(laptop.displays.cPanel().Detach(); laptop.displays.Changed())},
    {1, {}, HAPPENS(laptop.displays.cPanel().Attach(); laptop.displays.Changed())},
    {1, {}, HAPPENS(laptop.displays.cPanel().LoseDesktopArea(); laptop.displays.Changed())},
    {2, {6000}, HAPPENS(laptop.displays.AppearsAfter(laptop.displays.cPanel(), a))},
    {1, {2}, HAPPENS(laptop.displays.cPanel().dpi = 96 + 48 * a; laptop.displays.Changed())},
    {1, {2}, HAPPENS(laptop.displays.cPanel().frequency = 30 + 30 * a)},
    {1, {}, HAPPENS(laptop.displays.wallpaperPaths = Texts{L""})},
    {1, {}, HAPPENS(laptop.displays.Changed())},
    // ---- power, lid, sleep ----
    {3, {}, HAPPENS(laptop.power.Plug())},
    {3, {}, HAPPENS(laptop.power.Unplug())},
    {1, {}, HAPPENS(laptop.power.SourceUnknown())},
    {3, {2}, HAPPENS(laptop.power.BatterySaver(a == 0))},
    {4, {}, HAPPENS(laptop.power.OpenLid())},
    {3, {}, HAPPENS(laptop.power.CloseLid())},
    {5, {3}, HAPPENS(laptop.power.SetDisplay(static_cast<Power::Display>(a)))},
    {2, {7}, HAPPENS(laptop.power.SetLidAction(static_cast<Power::LidAction>(a)))},
    {1, {2, 7}, HAPPENS(laptop.power.SetSchemeLidAction(a == 0, b))},
    {2, {}, HAPPENS(laptop.power.SleepAndWake())},
    {2, {9000}, HAPPENS(laptop.Hibernate(a))},
    {1, {20}, HAPPENS(laptop.power.Broadcast(a))},
    {1, {5, 4}, HAPPENS(laptop.power.Notify(static_cast<os::PowerSetting>(a), b))},
    // ---- keys, touch, the firmware ----
    {2, {4}, HAPPENS(laptop.hotKey.PressF6(1 + a))},
    {4, {5}, HAPPENS(laptop.EndF6(a))},
    {2, {2}, HAPPENS(laptop.firmware.Flip(a == 0); laptop.hotKey.FlipChanged())},
    {1, {0xF9, 8}, HAPPENS(laptop.hotKey.Notify(a, b))},
    {1, {5, 5}, HAPPENS(laptop.hotKey.TouchPadStatus(a, b))},
    {1, {}, HAPPENS(laptop.hotKey.Remove())},
    {3, {}, HAPPENS(laptop.input.PressWinP())},
    {1, {}, HAPPENS(laptop.input.Press(os::kKeyLeftWindows))},
    {1, {}, HAPPENS(laptop.input.Press(os::kKeyP))},
    {1, {}, HAPPENS(laptop.input.Release(os::kKeyP))},
    {1, {}, HAPPENS(laptop.input.Release(os::kKeyLeftWindows))},
    {3, {40}, HAPPENS(laptop.touch.Contact(1 + a))},
    {2, {}, HAPPENS(laptop.touch.Lift())},
    {1, {21, 5}, HAPPENS(laptop.touch.Report(Bytes(a, kBytes[b])))},
    {1, {21, 5}, HAPPENS(laptop.touch.ReportFrom(laptop.touch.touchPad(), Bytes(a, kBytes[b])))},
    {1,
     {30, 3},
     HAPPENS(laptop.touch.Deliver(laptop.touch.touchScreen(), Bytes(a), {.sizeMatches = b == 0, .reportSize = 7}))},
    {1, {}, HAPPENS(laptop.TouchLeaves())},
    {2, {5000}, HAPPENS(laptop.TouchComesBack(a))},
    {1, {3000}, HAPPENS(laptop.touch.rawListLateMs = a)},
    {1, {2}, HAPPENS(laptop.touch.touchPad().heldByAnother = a == 0)},
    {1, {3000}, HAPPENS(laptop.touch.touchPad().takesReportMs = a)},
    {1, {5}, HAPPENS(laptop.firmware.replyBytes = a)},
    {1, {2}, HAPPENS(laptop.firmware.driverInstalled = a == 0)},
    {1, {}, HAPPENS(laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff))},
    {1, {2}, HAPPENS(laptop.firmware.panelLeavesWhenOff = a == 0)},
    // ---- the mouse, and other programs' windows ----
    {5, {Life::kWindowKinds, 2}, HAPPENS(laptop.OpenWindow(a, b))},
    {2, {24}, HAPPENS(laptop.CloseWindow(a))},
    {10, {24, 900, 700}, HAPPENS(laptop.Throw(a, b - 450, c - 100))},
    {1, {24, 900, 700}, HAPPENS(laptop.Throw(a, b - 450, c - 100, true))},
    {8, {24, 3}, HAPPENS(laptop.ThrowOnto(a, b))},
    {2, {24, 1200, 1400}, HAPPENS(laptop.DragWindow(a, b, c))},
    {2, {24, 10}, HAPPENS(laptop.ShowWindow(a, b))},
    {2, {24}, HAPPENS(laptop.ActivateWindow(a))},
    {1, {}, HAPPENS(laptop.desktop.SetForeground(os::WindowHandle::None))},
    {1, {24, 2}, HAPPENS(laptop.desktop.SetTopmost(laptop.Window(a), b == 0))},
    {1, {24}, HAPPENS(laptop.HangWindow(a))},
    {2, {24}, HAPPENS(laptop.CloseHungView(a))},
    {2, {24, 900}, HAPPENS(laptop.BusyWindow(a, b))},
    {1, {4}, HAPPENS(laptop.desktop.OpenTaskbar(laptop.displays.bPanel(), static_cast<Edge>(a), 48))},
    {1, {}, HAPPENS(laptop.desktop.CloseAll(L"Shell_TrayWnd"))},
    {3, {2400, 1700}, HAPPENS(laptop.mouse.MoveTo({a, b}))},
    {2, {2400, 1700}, HAPPENS(laptop.mouse.Glide({a, b}))},
    {1, {2400, 1700}, HAPPENS(laptop.mouse.SetPosition({a, b}))},
    {1, {}, HAPPENS(laptop.mouse.Press())},
    {2, {}, HAPPENS(laptop.mouse.Release())},
    {1, {}, HAPPENS(laptop.mouse.CancelDrag())},
    {1, {}, HAPPENS(laptop.mouseHook.DiesNow())},
    {1, {}, HAPPENS(laptop.keyboardHook.DiesNow())},
    // ---- the UI ----
    {14, {64, 24, 1000}, HAPPENS(laptop.Command(a, b, c))},
    {3, {101}, HAPPENS(laptop.SetLight(a))},
    {2, {6, 11, 256}, HAPPENS(laptop.Noise(a, b, c))},
    {1, {}, HAPPENS(laptop.ui.SendFileCopy(L"COPYWALLPAPER", L"C:\\a.jpg", L"C:\\b.jpg"))},
    {4, {}, HAPPENS(laptop.UiStarts())},
    {2, {}, HAPPENS(laptop.UiDies())},
    {1, {4000}, HAPPENS(laptop.ui.EndBeforeItsWindows(a))},
    {2, {}, HAPPENS(laptop.ui.Hang())},
    {4, {}, HAPPENS(laptop.ui.Recover())},
    {2, {3000}, HAPPENS(laptop.ui.Busy(a))},
    {1, {300}, HAPPENS(laptop.ui.HandleFor(a))},
    {1, {}, HAPPENS(laptop.GuideOpens())},
    {1, {}, HAPPENS(laptop.ui.CloseGuide())},
    {1, {}, HAPPENS(laptop.ui.OpenVideo())},
    {1, {}, HAPPENS(laptop.apps.RemoveUi())},
    {2, {}, HAPPENS(laptop.apps.InstallUi())},
    {1, {9000}, HAPPENS(laptop.apps.uiStartMs = a)},
    {1, {2}, HAPPENS(laptop.apps.uiOpensGuide = a == 0)},
    {1, {40}, HAPPENS(laptop.apps.shellAnswer = a)},
    // ---- sessions and users ----
    {3, {}, HAPPENS(laptop.sessions.Lock())},
    {4, {}, HAPPENS(laptop.sessions.Unlock())},
    {2, {}, HAPPENS(laptop.sessions.SwitchAway())},
    {1, {}, HAPPENS(laptop.sessions.LoseConsole())},
    {1, {}, HAPPENS(laptop.sessions.LoseConsoleUntold())},
    {4, {}, HAPPENS(laptop.sessions.SwitchBack())},
    {1, {}, HAPPENS(laptop.sessions.SwitchToOneself())},
    {1, {}, HAPPENS(laptop.sessions.RemoteTakesOver())},
    {1, {}, HAPPENS(laptop.sessions.RemoteEnds())},
    {3, {}, HAPPENS(laptop.sessions.IsPutBack())},
    {1, {}, HAPPENS(laptop.sessions.ShowSecureDesktop())},
    {2, {}, HAPPENS(laptop.sessions.HideSecureDesktop())},
    {1, {4}, HAPPENS(laptop.sessions.End(a))},
    {1, {}, HAPPENS(laptop.sessions.End(0x8000'0000))},
    {1, {}, HAPPENS(laptop.SignInAgain())},
    {1, {}, HAPPENS(laptop.Restart())},
    // ---- what else is on the machine ----
    {1, {8}, HAPPENS(laptop.Advance(a * 60'000))},
    {1, {}, HAPPENS(laptop.sessions.setupComplete = false)},
    {2, {}, HAPPENS(laptop.sessions.FinishSetup())},
    {1, {8}, HAPPENS(laptop.SetShopService(a))},
    {1, {3, 256}, HAPPENS(laptop.EditSettings(kSettings[a], b))},
    {1, {}, HAPPENS(laptop.settings.Remove(L"PowerSaving"))},
    {1, {2}, HAPPENS(laptop.events.Add(kEventsOfOthers[a]))},
    {1, {2}, HAPPENS(laptop.events.Remove(kEventsOfOthers[a]))},
    {1, {}, HAPPENS(laptop.management.Complete(0x8004'1032))},
    {1, {2}, HAPPENS(laptop.trace.Listen(a == 0))},
    {1, {}, HAPPENS(laptop.window.PickMenuItem(104))},
    {1, {0x400, 3}, HAPPENS(laptop.window.PostRaw(0x401 + a, b, 0))},
};
#undef HAPPENS

}  // namespace

std::span<const Stimulus> Stimuli() {
  return kStimuli;
}

}  // namespace explorer

#include "core/start_up.h"

#include <array>
#include <system_error>

#include "core/factory_config.h"
#include "core/named_events.h"
#include "core/resource_ids.h"
#include "core/service_state.h"
#include "core/service_timers.h"
#include "core/settings.h"
#include "core/settings_file.h"
#include "core/trace_log.h"
#include "display/factory_ids.h"
#include "display/panel_geometry.h"
#include "lifecycle/desktop_watch.h"
#include "lifecycle/package_watch.h"
#include "lifecycle/process_stop_watch.h"
#include "lifecycle/resume_watch.h"
#include "lifecycle/ui_launch.h"
#include "os/desktop.h"
#include "os/kernel_objects.h"
#include "os/messages.h"
#include "os/service_window.h"
#include "os/threads.h"
#include "power/firmware.h"
#include "power/panel_power.h"
#include "power/pc_screen_only.h"
#include "power/win_p_watch.h"
#include "touch/device_reset.h"
#include "touch/raw_input.h"
#include "touch/touch_pad.h"
#include "touch/touch_screen_check.h"
#include "uilink/hot_key_component.h"
#include "uilink/ui_channel.h"
#include "uilink/ui_sender.h"
#include "uilink/window_events.h"
#include "windows/drag_watch.h"
#include "windows/foreground_watch.h"
#include "windows/no_activate.h"

namespace tessaview {
namespace {

/// Without a thread for its watchdog the controller does not run: "resource unavailable, try again", as C++ has it.
constexpr int kNoThread = static_cast<int>(std::errc::resource_unavailable_try_again);

using PowerNotifications = std::array<os::PowerNotification, 5>;

/// The panels' factory ids are known before anything else happens; every panel search reads them again.
void KnowThePanels() {
  PanelDisplayInfo info;
  GetRegDevicePath(info);
  gPanelDisplayInfo.set(info);
}

ProcessWide<bool> gLaunchPhaseReached;  // start-up has done what the UI needs
ProcessWide<bool> gLaunchPhaseBegun;

/// The launch phase takes both: start-up come far enough, and Windows' setup over. Whichever comes last begins it, on
/// its own thread.
void LaunchUIOnce() {
  if (!gLaunchPhaseReached.get() || !isOOBEComplete.get()) return;
  if (!gLaunchPhaseBegun.exchange(true)) LaunchUIAtStart();
}

/// Setup ended after the controller started, on a thread of the system's.
void OnSetupCompleted() {
  isOOBEComplete.set(true);
  os::StartThread(L"UI launch phase", LaunchUIOnce);  // it may wait for the desktop; the system's thread shall not
}

void FollowFirstSignIn() {
  const auto complete = os::IsSetupComplete();
  isOOBEComplete.set(complete && *complete);
  gOOBEWaitHandle.set(os::WaitForSetup(OnSetupCompleted));
}

os::Status RegisterWindowClass(const std::wstring& className) {
  const auto status = os::RegisterServiceWindowClass(
      {.name = className, .largeIcon = kLargeIcon, .smallIcon = kSmallIcon, .menu = kMainMenu}, ServiceWindowEvents());
  os::BecomePerMonitorDpiAware();
  return status;
}

void PrepareWindow(os::WindowHandle window) {
  gServiceWindow.set(window);
  StartUpdateTimer();
  os::RefreshWindow(window);
  for (const auto message : {os::kCopyDataMessage, kHotKeyMessage, kTouchPadStatusMessage}) {
    os::AllowMessage(window, message);
  }
}

/// Each on a thread of its own.
void StartWatches() {
  StartUiSender();
  StartMouseWatch();
  StartDragWatch();
  StartForegroundWatch();
  StartDesktopWatch();
  StartWinPWatch();
  StartPackageWatch();
}

void SetUpSettings() {
  Log(L" ******* Tessaview ini Setting (Start) ******* \n");
  SetUpSettingsFile();
  Log(L" ******* Tessaview ini Setting (End) ******* \n");
  LoadSettings();
}

void RestorePanelPower() {
  if (isOOBEComplete.get()) ApplyIniPowerStatus();
  Log(L"isOOBEComplete = %d \n", isOOBEComplete.get());
}

void LaunchUI() {
  gLaunchPhaseReached.set(true);
  LaunchUIOnce();
  gUIWindow.set(os::FindTopWindow(kUiMainClass));
}

void ReconnectTouchPad() {
  SearchTouchPadAgain();
  RegisterCPanelRawInput();
}

/// The system delivers the current lid and display state with the registration; those first notifications are no
/// change.
PowerNotifications RegisterPowerNotifications(os::WindowHandle window) {
  using os::PowerSetting;
  gFirstLidOpenPending.set(true);
  gFirstDisplayOnPending.set(true);
  return {os::RegisterPowerSetting(window, PowerSetting::ConsoleDisplayState),
          os::RegisterPowerSetting(window, PowerSetting::LidSwitchState),
          os::RegisterPowerSetting(window, PowerSetting::PowerSavingStatus),
          os::RegisterPowerSetting(window, PowerSetting::AcDcPowerSource),
          os::RegisterPowerSetting(window, PowerSetting::LidCloseAction)};
}

void CheckProjection() {
  if (isOOBEComplete.get()) PowerOffWhenPcScreenOnly();
}

/// Tells the rest of the machine's software what the saved power is, and that no switch is under way.
void PublishPanelPower() {
  const auto saved = ReadSavedPower();
  if (saved == SavedPower::On) SetPowerEvent();
  if (saved == SavedPower::Off) {
    ResetPowerEvent();
    if (IsRetailDemo()) StartRetailDemoTimer();
  }
  ResetSwitchingEvent();
}

void ShutDown(const PowerNotifications& notifications) {
  LeaveNoActivateMode();
  for (const auto notification : notifications) os::UnregisterPowerSetting(notification);
  os::EndWaitForSetup(gOOBEWaitHandle.get());
  os::UnregisterSessionEvents(gServiceWindow.get());
}

}  // namespace

// The order is a contract: what follows relies on what stands before, and the log is read by it. Waits on the way hold
// up the message loop, and what is sent to the window meanwhile is served once that runs.
int RunController() {
  KnowThePanels();
  Log(L" ******* Start TessaviewService ******* \n");
  FollowFirstSignIn();
  CheckTouchScreenHid();

  // One instance per session, and its window.

  const auto title = os::LoadResourceText(kTitleText);
  const auto className = os::LoadResourceText(kClassText);
  (void)RegisterWindowClass(className);
  const auto instance = os::CreateNamedMutex(L"Mutex_TessaviewService");  // held until the process ends
  if (instance.alreadyExisted) return 0;
  const auto window = os::CreateServiceWindow(className, title);
  if (window == os::WindowHandle::None) return 0;
  PrepareWindow(window);

  // What the machine consists of.
  InitialDisplay();
  InitGenerationCheck();  // for the log; whoever needs the generation asks for it
  ResetTouchDevices();
  StartWatches();
  if (!StartProcessStopWatch()) return kNoThread;

  // The user's choices, and the UI.
  SetUpSettings();
  RestorePanelPower();
  LaunchUI();
  ReconnectTouchPad();
  StartResumeWatch();

  // What happens from now on.
  const auto notifications = RegisterPowerNotifications(window);
  (void)os::RegisterSessionEvents(window);
  CheckProjection();
  PublishPanelPower();
  SubscribeToTouchPadStatus();

  const int exitCode = os::RunMessageLoop(window, kAccelerators);
  ShutDown(notifications);
  return exitCode;
}

}  // namespace tessaview

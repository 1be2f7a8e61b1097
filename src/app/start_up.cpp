#include "app/start_up.h"

#include <array>
#include <system_error>

#include "core/factory_config.h"
#include "core/resource_ids.h"
#include "core/service_window.h"
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "display/panel_search.h"
#include "lifecycle/first_sign_in.h"
#include "lifecycle/ui_launch.h"
#include "lifecycle/watches.h"
#include "os/kernel_objects.h"
#include "os/messages.h"
#include "os/service_window.h"
#include "power/firmware.h"
#include "power/hot_key_component.h"
#include "power/named_events.h"
#include "power/panel_power.h"
#include "power/pc_screen_only.h"
#include "power/settings.h"
#include "power/settings_file.h"
#include "power/win_p_watch.h"
#include "touch/device_reset.h"
#include "touch/raw_input.h"
#include "touch/touch_pad.h"
#include "touch/touch_screen_check.h"
#include "uilink/channel/ui_sender.h"
#include "uilink/events/events.h"
#include "uilink/events/window_events.h"
#include "windows/foreground_watch.h"
#include "windows/mover/drag_watch.h"
#include "windows/no_activate.h"

namespace tessaview {
namespace {

/// Without a thread for its watchdog the controller does not run: "resource unavailable, try again", as C++ has it.
constexpr int kNoThread = static_cast<int>(std::errc::resource_unavailable_try_again);

using PowerNotifications = std::array<os::PowerNotification, 5>;

os::Status RegisterWindowClass(const std::wstring& className) {
  const auto status = os::RegisterServiceWindowClass(
      {.name = className, .largeIcon = kLargeIcon, .smallIcon = kSmallIcon, .menu = kMainMenu}, ServiceWindowEvents());
  os::BecomePerMonitorDpiAware();
  return status;
}

void PrepareWindow(os::WindowHandle window) {
  SetServiceWindow(window);
  StartServiceTimer(ServiceTimer::Update);
  os::RefreshWindow(window);
  for (const auto message : {os::kCopyDataMessage, HotKeyMessage(), TouchPadStatusMessage()}) {
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
  if (isOOBEComplete()) ApplyIniPowerStatus();
  Log(L"isOOBEComplete = %d \n", isOOBEComplete());
}

void ReconnectTouchPad() {
  SearchTouchPadAgain();
  RegisterCPanelRawInput();
}

PowerNotifications RegisterPowerNotifications(os::WindowHandle window) {
  using os::PowerSetting;
  ExpectFirstNotifications();
  return {os::RegisterPowerSetting(window, PowerSetting::ConsoleDisplayState),
          os::RegisterPowerSetting(window, PowerSetting::LidSwitchState),
          os::RegisterPowerSetting(window, PowerSetting::PowerSavingStatus),
          os::RegisterPowerSetting(window, PowerSetting::AcDcPowerSource),
          os::RegisterPowerSetting(window, PowerSetting::LidCloseAction)};
}

void CheckProjection() {
  if (isOOBEComplete()) PowerOffWhenPcScreenOnly();
}

/// Tells the rest of the machine's software what the saved power is, and that no switch is under way.
void PublishPanelPower() {
  const auto saved = ReadSavedPower();
  if (saved == SavedPower::On) SetPowerEvent();
  if (saved == SavedPower::Off) {
    ResetPowerEvent();
    if (IsRetailDemo()) StartServiceTimer(ServiceTimer::RetailDemo);
  }
  ResetSwitchingEvent();
}

void ShutDown(const PowerNotifications& notifications) {
  LeaveNoActivateMode();
  for (const auto notification : notifications) {
    if (notification != os::PowerNotification::None) os::UnregisterPowerSetting(notification);
  }
  StopFollowingFirstSignIn();
  os::UnregisterSessionEvents(gServiceWindow());
}

}  // namespace

// The order is a contract: what follows relies on what stands before, and the log is read by it. Until the message loop
// runs, what is posted to the window waits. What is sent to it waits too, or is served while start-up itself waits for
// another program's answer.
int RunController() {
  ReadFactoryIds();
  Log(L" ******* Start TessaviewService ******* \n");
  FollowFirstSignIn(LaunchUIAfterSetup);
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
  LaunchUIOnceSetUp();
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

#include "uilink/window_events.h"

#include "core/resource_ids.h"
#include "core/service_state.h"
#include "core/service_timers.h"
#include "core/trace_log.h"
#include "touch/touch_pad.h"
#include "uilink/display_change.h"
#include "uilink/hot_key.h"
#include "uilink/hot_key_component.h"
#include "uilink/mask_wait.h"
#include "uilink/power_events.h"
#include "uilink/retail_demo.h"
#include "uilink/touch_forwarding.h"
#include "uilink/ui_channel.h"
#include "uilink/ui_commands.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kSessionLock = 7, kSessionUnlock = 8;                       // WTS_SESSION_*
constexpr std::uint32_t kEndSessionCloseApp = 0x1, kEndSessionLogOff = 0x80000000;  // ENDSESSION_*

void OnTimer(std::uint64_t id) {
  if (id == kUpdateTimer) SendUiText({.text = L"CHECKUPDATE"});
  if (id == kRetailDemoTimer) OnRetailDemoTimer();
  if (id == kRetailDemoCloneTimer) OnRetailDemoCloneTimer();
  if (id == kDesktopTimer) OnDesktopTimer();
}

void OnSessionChange(std::uint32_t event) {
  if (event == kSessionLock) Log(L"WTS_SESSION_LOCK \n");
  if (event == kSessionUnlock) Log(L"WTS_SESSION_UNLOCK \n");
}

/// Without the controller the touch surface is of use as a plain touch pad only.
void OnQueryEndSession(std::uint32_t reason) {
  if ((reason & (kEndSessionLogOff | kEndSessionCloseApp)) != 0) SetModetoTouchPad();
}

void OnCommand(std::uint16_t id) {
  if (id == kAboutCommand) os::ShowDialog(gServiceWindow.get(), kAboutDialog);
  if (id == kExitCommand) os::DestroyServiceWindow(gServiceWindow.get());
}

void OnDestroy() {
  os::QuitMessageLoop(0);
}

}  // namespace

const os::ServiceWindowEvents& ServiceWindowEvents() {
  static const os::ServiceWindowEvents events{
      .hotKeyMessage = kHotKeyMessage,
      .touchPadStatusMessage = kTouchPadStatusMessage,
      .hotKey = OnHotKey,
      .touchPadStatus = OnTouchPadStatus,
      .displayChange = OnDisplayChange,
      .copyData = OnCopyData,
      .rawInput = OnRawInput,
      .command = OnCommand,
      .timer = OnTimer,
      .powerBroadcast = OnPowerBroadcast,
      .powerSetting = OnPowerSetting,
      .sessionChange = OnSessionChange,
      .queryEndSession = OnQueryEndSession,
      .destroy = OnDestroy,
  };
  return events;
}

}  // namespace tessaview

#include "uilink/events/window_events.h"

#include "core/console.h"
#include "core/resource_ids.h"
#include "core/service_window.h"
#include "power/hot_key_component.h"
#include "touch/touch_pad.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/commands/ui_commands.h"
#include "uilink/events/events.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kEndSessionCloseApp = 0x1, kEndSessionLogOff = 0x80000000;  // ENDSESSION_*

void OnTimer(std::uint64_t id) {
  switch (static_cast<ServiceTimer>(id)) {
    case ServiceTimer::Update:
      TellUi(texts::kCheckUpdate);
      return;
    case ServiceTimer::RetailDemo:
      return OnRetailDemoTimer();
    case ServiceTimer::RetailDemoClone:
      return OnRetailDemoCloneTimer();
    case ServiceTimer::Desktop:
      return OnDesktopTimer();
  }
}

/// Without the controller the touch surface is of use as a plain touch pad only. Away from the console it is another
/// user's.
void OnQueryEndSession(std::uint32_t reason) {
  if ((reason & (kEndSessionLogOff | kEndSessionCloseApp)) != 0 && IsAtConsole()) SetModetoTouchPad();
}

void OnCommand(std::uint16_t id) {
  if (id == kAboutCommand) os::ShowDialog(gServiceWindow(), kAboutDialog);
  if (id == kExitCommand) os::DestroyServiceWindow(gServiceWindow());
}

void OnDestroy() {
  os::QuitMessageLoop(0);
}

}  // namespace

const os::ServiceWindowEvents& ServiceWindowEvents() {
  static const os::ServiceWindowEvents events{
      .hotKeyMessage = HotKeyMessage(),
      .touchPadStatusMessage = TouchPadStatusMessage(),
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

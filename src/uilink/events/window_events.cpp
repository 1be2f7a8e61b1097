#include "uilink/events/window_events.h"

#include "core/console.h"
#include "core/noted_events.h"
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

// What needs an answer is answered at once: the UI's commands and the end of the session. What the system only tells
// can come in the middle of anything that waits for another program, and is dealt with afterwards. The rest comes from
// the message loop as it is.
const os::ServiceWindowEvents& ServiceWindowEvents() {
  static const os::ServiceWindowEvents events{
      .hotKeyMessage = HotKeyMessage(),
      .touchPadStatusMessage = TouchPadStatusMessage(),
      .hotKey = OnHotKey,
      .touchPadStatus = OnTouchPadStatus,
      .displayChange = [] { DealLater(OnDisplayChange); },
      .copyData = OnCopyData,
      .rawInput = OnRawInput,
      .command = OnCommand,
      .timer = OnTimer,
      .powerBroadcast = [](std::uint32_t event) { DealLater([=] { OnPowerBroadcast(event); }); },
      .powerSetting = [](os::PowerSetting setting,
                         std::uint32_t value) { DealLater([=] { OnPowerSetting(setting, value); }); },
      .sessionChange = [](std::uint32_t event) { DealLater([=] { OnSessionChange(event); }); },
      .queryEndSession = OnQueryEndSession,
      .noted = DealWithNoted,
      .destroy = OnDestroy,
  };
  return events;
}

}  // namespace tessaview

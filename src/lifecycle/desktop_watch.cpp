#include "core/log_failure.h"
#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "lifecycle/watches.h"
#include "os/desktop.h"
#include "os/hooks.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

Shared<bool> gIsSecureDesktopUp;

/// A desktop that this process may not even open is not the user's.
bool IsSecureDesktopUp() {
  const auto name = os::InputDesktopName();
  return name.empty() || name == L"Winlogon";
}

void OnDesktopSwitch() {
  const bool isUp = IsSecureDesktopUp();
  if (isUp == gIsSecureDesktopUp.exchange(isUp)) return;
  Log(L"[DesktopSwitch] Secure desktop = %d \n", isUp);
  TellUi(isUp ? texts::kUacEntry : texts::kUacExit);
}

}  // namespace

void StartDesktopWatch() {
  StartThread(L"desktop switch", [] {
    LogFailure(L"Switches of the desktop cannot be watched",
               os::WatchWindowEvents({{os::WindowEvent::DesktopSwitch, os::WindowEvent::DesktopSwitch}},
                                     [](os::WindowEvent, os::WindowHandle, std::int32_t) { OnDesktopSwitch(); }));
  });
}

}  // namespace tessaview

#include "uilink/system_commands.h"

#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "uilink/hot_key_component.h"
#include "uilink/ui_channel.h"
#include "windows/cursor_centering.h"
#include "windows/window_program.h"

namespace tessaview {

void TellProcessName(const UiMessage& message) {
  const auto path = os::ProcessImagePath(os::WindowProcessId(message.Window()));
  const auto reply = L"PROCESSNAME=" + ProgramName(path);
  SendUiText({.text = reply});
  Log(L"Send to UI %ls \n", reply);
}

void TurnTouchPadOn(const UiMessage& /*message*/) {
  RequestTouchPadOn();
}

void CenterCursor(const UiMessage& /*message*/) {
  Log(L"[SetCursorCenter] Recevice data SETCURSORCENTER.");
  StartCursorCentering();
}

}  // namespace tessaview

#include "uilink/system_commands.h"

#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "uilink/hot_key_component.h"
#include "uilink/ui_channel.h"

namespace tessaview {
namespace {

/// A path without its folder and its last extension.
std::wstring ProgramName(const std::wstring& path) {
  const auto file = path.substr(path.rfind(L'\\') + 1);
  return file.substr(0, file.rfind(L'.'));
}

}  // namespace

void TellProcessName(const UiMessage& message) {
  const auto path = os::ProcessImagePath(os::WindowProcessId(message.Window()));
  const auto reply = L"PROCESSNAME=" + ProgramName(path);
  SendUiText({.text = reply});
  Log(L"Send to UI %ls \n", reply);
}

void TurnTouchPadOn(const UiMessage& /*message*/) {
  RequestTouchPadOn();
}

}  // namespace tessaview

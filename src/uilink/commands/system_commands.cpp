// The UI's commands about a window's program, the touch pad and the pointer.
#include "appid/window_program.h"
#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "power/hot_key_component.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/commands/command.h"
#include "windows/cursor_centering.h"

namespace tessaview {
namespace {

void TellProcessName(const UiMessage& message) {
  const auto name = ProgramName(os::ProcessImagePath(os::WindowProcessId(message.Window())));
  TellUi(texts::kProcessName, {.text = name});
  Log(L"Send to UI %ls \n", texts::kProcessName.name + name);
}

void TurnTouchPadOn(const UiMessage& /*message*/) {
  RequestTouchPadOn();
}

void CenterCursor(const UiMessage& /*message*/) {
  StartCursorCentering();
}

constexpr UiCommand kSystemCommands[] = {
    {L"GETPROCESSNAME", Match::Exact, TellProcessName, nullptr,
     "handle: window; answers PROCESSNAME= with the name of its program"},
    {L"SETTOUCHPAD", Match::Exact, TurnTouchPadOn, nullptr, "asks the hot-key component to turn the touch pad on"},
    {L"SETCURSORCENTER", Match::Exact, CenterCursor, L"[SetCursorCenter] Recevice data SETCURSORCENTER.",
     "puts the pointer in the middle of the primary screen"},
};

}  // namespace

UiCommandRows SystemCommands() {
  return kSystemCommands;
}

}  // namespace tessaview

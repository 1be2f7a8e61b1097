// The UI's commands that show, hide, raise or close a window, and leave it where it is.
#include "os/window_control.h"
#include "uilink/commands/command.h"
#include "windows/c_panel_apps.h"
#include "windows/patient_calls.h"
#include "windows/window_closing.h"

namespace tessaview {
namespace {

using os::ShowCommand;

void CloseView(const UiMessage& message) {
  CloseWindowForGood(message.Window());
}

void GoHome(const UiMessage& /*message*/) {
  MinimizeAppsOnCPanel();
}

template <ShowCommand command>
void ShowAs(const UiMessage& message) {
  Show(message.Window(), command);
}

template <bool topmost>
void PutOnTop(const UiMessage& message) {
  if (Hangs(message.Window())) return;
  (void)os::SetTopmost(message.Window(), topmost);  // a window that refuses stays as it is
}

constexpr UiCommand kWindowCommands[] = {
    {L"VIEWCLOSE", Match::Exact, CloseView, nullptr,
     "handle: window; hides and closes it, and after 5 seconds ends its program if that hangs"},
    {L"HOME", Match::Exact, GoHome, nullptr, "minimises the applications on the C panel and hides companion windows"},
    {L"SHOWMIN", Match::Exact, ShowAs<ShowCommand::ShowMinimized>, nullptr, "handle: window; minimises it"},
    {L"SHOWRESTORE", Match::Exact, ShowAs<ShowCommand::Restore>, nullptr, "handle: window; restores it"},
    {L"APPNAVINORMAL", Match::Exact, ShowAs<ShowCommand::ShowNormal>, L"[APP NAVIGATOR] set window normal",
     "handle: window; shows it in its normal size"},
    {L"APPNAVISHOW", Match::Exact, ShowAs<ShowCommand::Show>, L"[APP NAVIGATOR] show window",
     "handle: window; shows it as it is"},
    {L"APPNAVIMAXIMIZED", Match::Exact, ShowAs<ShowCommand::ShowMaximized>, L"[APP NAVIGATOR] set window maximized",
     "handle: window; shows it maximised"},
    {L"APPNAVIRESTORE", Match::Exact, ShowAs<ShowCommand::Restore>, L"[APP NAVIGATOR] show restore",
     "handle: window; restores it"},
    {L"SETTOPMOST", Match::Exact, PutOnTop<true>, L"[APP NAVIGATOR] set window top most",
     "handle: window; puts it above all others"},
    {L"SETNOTOPMOST", Match::Exact, PutOnTop<false>, L"[APP NAVIGATOR] set window no top most",
     "handle: window; puts it back among the others"},
};

}  // namespace

UiCommandRows WindowCommands() {
  return kWindowCommands;
}

}  // namespace tessaview

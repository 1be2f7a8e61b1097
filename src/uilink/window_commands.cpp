#include "uilink/window_commands.h"

#include "core/trace_log.h"
#include "os/window_control.h"
#include "windows/c_panel_apps.h"
#include "windows/patient_calls.h"
#include "windows/window_closing.h"

namespace tessaview {

using os::ShowCommand;

void CloseView(const UiMessage& message) {
  CloseWindowForGood(message.Window());
}

void GoHome(const UiMessage& /*message*/) {
  MinimizeAppsOnCPanel();
}

void MinimizeWindow(const UiMessage& message) {
  Show(message.Window(), ShowCommand::ShowMinimized);
}

void RestoreWindow(const UiMessage& message) {
  Show(message.Window(), ShowCommand::Restore);
}

void ShowNavigatedNormal(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] set window normal");
  Show(message.Window(), ShowCommand::ShowNormal);
}

void ShowNavigated(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] show window");
  Show(message.Window(), ShowCommand::Show);
}

void ShowNavigatedMaximized(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] set window maximized");
  Show(message.Window(), ShowCommand::ShowMaximized);
}

void RestoreNavigated(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] show restore");
  Show(message.Window(), ShowCommand::Restore);
}

void PutOnTop(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] set window top most");
  if (!Hangs(message.Window())) (void)os::SetTopmost(message.Window(), true);
}

void PutBackFromTop(const UiMessage& message) {
  Log(L"[APP NAVIGATOR] set window no top most");
  if (!Hangs(message.Window())) (void)os::SetTopmost(message.Window(), false);
}

}  // namespace tessaview

// The stand-in UI.
//   tessaview-ui                  shows itself on the C panel and talks with the controller
//   tessaview-ui COMMAND [VALUE]  sends the controller one command: tessaview-ui BLSET 50
#include <cstdio>
#include <cwchar>
#include <iterator>

#include "ui/ui_message.h"
#include "ui/ui_window.h"

namespace {

int SendCommand(const wchar_t* command, const wchar_t* value) {
  lab::UiMessage message{};
  wcsncpy(message.text, command, std::size(message.text) - 1);
  if (value != nullptr) message.handle = wcstoul(value, nullptr, 10);
  if (lab::SendUiMessage(FindWindowW(lab::kControllerClass, nullptr), lab::kUiMessageKind, message)) return 0;
  std::fputs("the controller is not there\n", stderr);
  return 1;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  if (count < 2) return lab::RunUiWindow();
  return SendCommand(words[1], count > 2 ? words[2] : nullptr);
}

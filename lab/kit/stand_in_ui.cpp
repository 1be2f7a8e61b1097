#include "kit/stand_in_ui.h"

#include <cwchar>
#include <iterator>

#include "ui/ui_message.h"

namespace lab {

bool StandInUi::Start() {
  process_ = ChildProcess::Start(LabFolder() + L"tessaview-ui.exe");
  return process_ && Eventually(IsThere);
}

bool StandInUi::IsThere() {
  return FindWindowW(kUiClass, nullptr) != nullptr;
}

bool StandInUi::Send(const std::wstring& command, std::uint64_t number) {
  UiMessage message{};
  wcsncpy(message.text, command.c_str(), std::size(message.text) - 1);
  message.handle = number;
  return SendUiMessage(FindWindowW(kUiClass, nullptr), kPleaseSend, message);
}

}  // namespace lab

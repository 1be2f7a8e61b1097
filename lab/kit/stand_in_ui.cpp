#include "kit/stand_in_ui.h"

#include <cwchar>
#include <iterator>

#include "ui/ui_message.h"

namespace lab {

namespace {

std::wstring Program() {
  return LabFolder() + L"tessaview-ui.exe";
}

}  // namespace

bool StandInUi::Start() {
  process_ = ChildProcess::Start(Program());
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

bool StandInUi::SendByCommandLine(const std::wstring& commandAndNumber) {
  return ChildProcess::Start(Program(), commandAndNumber).WaitForExit() == 0U;
}

}  // namespace lab

#include "kit/stand_in_ui.h"

namespace lab {
namespace {

std::wstring Program() {
  return LabFolder() + L"tessaview-ui.exe";
}

/// Open as long as this process lives, so that a wake that comes first is not lost.
HANDLE WakeEvent() {
  static const HANDLE wake = CreateEventW(nullptr, FALSE, FALSE, kWakeEvent);
  return wake;
}

}  // namespace

bool StandInUi::Start(const wchar_t* windowClass) {
  const std::wstring wanted = windowClass;
  const wchar_t* const option = wanted == kUiGuideClass ? L"--guide" : wanted == kUiVideoClass ? L"--video" : L"";
  process_ = ChildProcess::Start(Program(), option);
  return process_ && Eventually([&] { return IsThere(windowClass); });
}

bool StandInUi::IsThere(const wchar_t* windowClass) {
  return FindWindowW(windowClass, nullptr) != nullptr;
}

bool StandInUi::Hang() {
  ResetEvent(WakeEvent());
  return SendUiMessage(FindWindowW(kUiClass, nullptr), kPleaseHang, {});
}

void StandInUi::Wake() {
  SetEvent(WakeEvent());
}

bool StandInUi::AskBack(const std::wstring& whenTold, const std::wstring& command, std::uint32_t busyMs) {
  const auto words = whenTold + L" " + command;
  return SendUiMessage(FindWindowW(kUiClass, nullptr), kPleaseAskBack,
                       MakeUiMessage(words.c_str(), {.handle = busyMs}));
}

bool StandInUi::Send(const std::wstring& command, const UiValues& values, const wchar_t* windowClass) {
  return SendUiMessage(FindWindowW(windowClass, nullptr), kPleaseSend, MakeUiMessage(command.c_str(), values));
}

bool StandInUi::SendByCommandLine(const std::wstring& commandAndNumber) {
  return ChildProcess::Start(Program(), commandAndNumber).WaitForExit() == 0U;
}

}  // namespace lab

// The stand-in UI.
//   tessaview-ui                        shows itself on the C panel and talks with the controller
//   tessaview-ui --guide                shows the first-run guide's window instead
//   tessaview-ui --video                shows the video's window instead
//   tessaview-ui COMMAND [VALUE [X Y [LEFT TOP RIGHT BOTTOM]]]
//                                       sends the controller one command: tessaview-ui BLSET 50
#include <cstdio>
#include <cwchar>
#include <span>
#include <string_view>

#include "ui/ui_message.h"
#include "ui/ui_window.h"

namespace {

std::int32_t NumberAt(std::span<wchar_t*> words, std::size_t index) {
  return index < words.size() ? static_cast<std::int32_t>(wcstol(words[index], nullptr, 10)) : 0;
}

int SendCommand(std::span<wchar_t*> words) {
  const auto at = [&](std::size_t index) { return NumberAt(words, index); };
  const auto message = lab::MakeUiMessage(
      words[0],
      {.handle = static_cast<std::uint32_t>(at(1)), .point = {at(2), at(3)}, .rect = {at(4), at(5), at(6), at(7)}});
  const HWND controller = FindWindowW(lab::kControllerClass, nullptr), shown = FindWindowW(lab::kUiClass, nullptr);
  // A UI that shows itself sends it, so that the command stands in its talk.
  const bool sent = shown == nullptr ? lab::SendUiMessage(controller, lab::kUiMessageKind, message)
                                     : lab::SendUiMessage(shown, lab::kPleaseSend, message);
  if (controller != nullptr && sent) return 0;
  std::fputs("the controller is not there\n", stderr);
  return 1;
}

}  // namespace

int wmain(int count, wchar_t** words) {
  const std::wstring_view first = count < 2 ? L"" : words[1];
  if (first.empty()) return lab::RunUiWindow(lab::kUiClass, {});
  if (first == L"--guide") return lab::RunUiWindow(lab::kUiGuideClass, L"guide");
  if (first == L"--video") return lab::RunUiWindow(lab::kUiVideoClass, L"video");
  return SendCommand(std::span(words, static_cast<std::size_t>(count)).subspan(1));
}

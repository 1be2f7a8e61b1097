#include "appid/window_program.h"

#include <algorithm>

#include "os/desktop.h"
#include "os/processes.h"
#include "windows/window_classes.h"

namespace tessaview {
namespace {

/// The application's window inside a frame; that of a suspended application is a top-level one with the frame's title.
os::WindowHandle CoreWindowOf(os::WindowHandle frame) {
  const auto child = os::FindChildWindow(frame, kCoreWindowClass);
  const auto title = os::WindowTitle(frame);
  if (child != os::WindowHandle::None || title.empty()) return child;
  return os::FindTopWindow(kCoreWindowClass, title.c_str());
}

}  // namespace

std::optional<std::wstring> ExecutableOfWindow(os::WindowHandle window) {
  const bool isFrame = os::WindowClassName(window) == kFrameClass;
  auto path = os::ProcessImagePath(os::WindowProcessId(isFrame ? CoreWindowOf(window) : window));
  if (path.empty()) return std::nullopt;
  return path;
}

std::wstring ProgramName(const std::wstring& path) {
  const auto file = path.substr(path.rfind(L'\\') + 1);
  return file.substr(0, file.rfind(L'.'));
}

std::wstring ApplicationLabel(os::WindowHandle window) {
  constexpr wchar_t kLastNarrow = 0xFF;
  auto label = ProgramName(ExecutableOfWindow(window).value_or(L""));
  std::replace_if(
      label.begin(), label.end(), [](wchar_t character) { return character > kLastNarrow; }, L'?');
  return label;
}

}  // namespace tessaview

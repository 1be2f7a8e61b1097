#include "appid/window_program.h"

#include <algorithm>

#include "os/desktop.h"
#include "os/processes.h"
#include "windows/window_classes.h"

namespace tessaview {
namespace {

/// The application's window inside a frame; while the application is suspended, the top-level one with the frame's
/// title.
os::WindowHandle CoreWindowOf(os::WindowHandle frame) {
  const auto child = os::FindChildWindow(frame, kCoreWindowClass);
  const auto title = os::WindowTitle(frame);
  if (child != os::WindowHandle::None || title.empty()) return child;
  return os::FindTopWindow(kCoreWindowClass, title.c_str());
}

/// At most 259 characters; empty when it cannot be told.
std::wstring ExecutableOf(os::WindowHandle window) {
  const bool isFrame = os::WindowClassName(window) == kFrameClass;
  return os::ProcessImagePath(os::WindowProcessId(isFrame ? CoreWindowOf(window) : window));
}

}  // namespace

std::wstring ProgramName(const std::wstring& path) {
  const auto file = path.substr(path.rfind(L'\\') + 1);
  return file.substr(0, file.rfind(L'.'));
}

std::wstring ApplicationLabel(os::WindowHandle window) {
  constexpr wchar_t kLastNarrow = 0xFF;
  auto label = ProgramName(ExecutableOf(window));
  std::replace_if(
      label.begin(), label.end(), [](wchar_t character) { return character > kLastNarrow; }, L'?');
  return label;
}

}  // namespace tessaview

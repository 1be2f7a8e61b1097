#include "windows/full_screen.h"

#include <string>

#include "core/trace_log.h"
#include "os/desktop.h"

namespace tessaview {
namespace {

bool HasCaption(os::WindowHandle window) {
  return (os::WindowStyle(window) & os::kWsCaption) == os::kWsCaption;
}

bool Covers(const os::Rect& window, const os::Rect& desktop) {
  return window.left <= desktop.left && window.top <= desktop.top && window.right >= desktop.right &&
         window.bottom >= desktop.bottom;
}

/// Whether a window fills the primary display and sticks out of it on at least one side.
bool SticksOut(const os::Rect& window, const os::Rect& desktop, const os::Size& screen) {
  if (window.left > desktop.left || window.top > desktop.top) return false;
  const bool fills = window.right >= screen.width && window.bottom >= screen.height;
  return (window.left < desktop.left && fills) || (window.top < desktop.top && fills) ||
         (window.right > desktop.right && window.bottom >= desktop.bottom) ||
         (window.right >= desktop.right && window.bottom > desktop.bottom);
}

}  // namespace

bool IsFullScreenWindow(os::WindowHandle window) {
  if (HasCaption(window) || window == os::DesktopWindow() || window == os::ShellWindow()) return false;
  const auto area = os::WindowRect(window), desktop = os::WindowRect(os::DesktopWindow());
  const auto screen = os::PrimaryScreenSize();
  const auto className = os::WindowClassName(window);
  if (Covers(area, desktop) && className != L"WorkerW" && className != L"#32770") return true;

  if (className.find(L"AcrobatSDIWindow") != std::wstring::npos) {
    Log(L"Set TRUE by check 1 \n");
    return true;
  }
  if (area == os::Rect{desktop.left, desktop.top, screen.width, screen.height}) {
    Log(L"Set TRUE by check 2 \n");
    return true;
  }
  if (SticksOut(area, desktop, screen)) {
    Log(L"Set TRUE by check 3 \n");
    return true;
  }
  return false;
}

}  // namespace tessaview

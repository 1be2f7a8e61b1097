// Finding windows.
#include "os/desktop.h"
#include "os/win32/win32_support.h"

namespace os {

WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title) {
  return win32::ToDoor<WindowHandle>(FindWindowW(className, title));
}

WindowHandle FindChildWindow(WindowHandle parent, const wchar_t* className) {
  return win32::ToDoor<WindowHandle>(FindWindowExW(win32::NativeOf(parent), nullptr, className, nullptr));
}

std::vector<WindowHandle> TopWindows() {
  std::vector<WindowHandle> windows;
  const auto add = [](HWND window, LPARAM list) noexcept -> BOOL {
    reinterpret_cast<std::vector<WindowHandle>*>(list)->push_back(win32::ToDoor<WindowHandle>(window));
    return TRUE;
  };
  EnumWindows(add, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

WindowHandle WindowAt(Point point) {
  return win32::ToDoor<WindowHandle>(WindowFromPoint({point.x, point.y}));
}

WindowHandle ForegroundWindow() {
  return win32::ToDoor<WindowHandle>(GetForegroundWindow());
}

WindowHandle RootWindow(WindowHandle window) {
  return win32::ToDoor<WindowHandle>(GetAncestor(win32::NativeOf(window), GA_ROOT));
}

WindowHandle RootOwner(WindowHandle window) {
  return win32::ToDoor<WindowHandle>(GetAncestor(win32::NativeOf(window), GA_ROOTOWNER));
}

WindowHandle DesktopWindow() {
  return win32::ToDoor<WindowHandle>(GetDesktopWindow());
}

WindowHandle ShellWindow() {
  return win32::ToDoor<WindowHandle>(GetShellWindow());
}

}  // namespace os

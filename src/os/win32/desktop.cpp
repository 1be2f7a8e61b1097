#include "os/desktop.h"

#include <array>

#include "os/win32/win32_support.h"

namespace os {

WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title) {
  return win32::ToDoor<WindowHandle>(FindWindowW(className, title));
}

WindowHandle ForegroundWindow() {
  return win32::ToDoor<WindowHandle>(GetForegroundWindow());
}

std::wstring WindowClassName(WindowHandle window) {
  std::array<wchar_t, 260> name{};
  GetClassNameW(win32::ToNative<HWND>(window), name.data(), static_cast<int>(name.size()));
  return win32::TextOf(name);
}

WindowHandle RootWindow(WindowHandle window) {
  return win32::ToDoor<WindowHandle>(GetAncestor(win32::ToNative<HWND>(window), GA_ROOT));
}

Rect WindowRect(WindowHandle window) {
  RECT rect{};
  GetWindowRect(win32::ToNative<HWND>(window), &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

std::uint32_t WindowStyle(WindowHandle window) {
  return static_cast<std::uint32_t>(GetWindowLongW(win32::ToNative<HWND>(window), GWL_STYLE));
}

WindowHandle DesktopWindow() {
  return win32::ToDoor<WindowHandle>(GetDesktopWindow());
}

WindowHandle ShellWindow() {
  return win32::ToDoor<WindowHandle>(GetShellWindow());
}

Size PrimaryScreenSize() {
  return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

std::uint32_t WindowProcessId(WindowHandle window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(win32::ToNative<HWND>(window), &processId);
  return processId;
}

}  // namespace os

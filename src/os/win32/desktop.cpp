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

std::uint32_t WindowProcessId(WindowHandle window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(win32::ToNative<HWND>(window), &processId);
  return processId;
}

}  // namespace os

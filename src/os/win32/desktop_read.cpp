// Reading what windows are.
#include <array>

#include "os/desktop.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct DesktopCloser {
  void operator()(HDESK desktop) const noexcept { CloseDesktop(desktop); }
};
using InputDesktop = std::unique_ptr<HDESK__, DesktopCloser>;

}  // namespace

bool IsWindow(WindowHandle window) {
  return ::IsWindow(win32::NativeOf(window)) != FALSE;
}

std::wstring WindowClassName(WindowHandle window) {
  std::array<wchar_t, 260> name{};
  GetClassNameW(win32::NativeOf(window), name.data(), static_cast<int>(name.size()));
  return win32::TextOf(name);
}

std::wstring WindowTitle(WindowHandle window) {
  std::array<wchar_t, 260> title{};
  GetWindowTextW(win32::NativeOf(window), title.data(), static_cast<int>(title.size()));
  return win32::TextOf(title);
}

Rect WindowRect(WindowHandle window) {
  RECT rect{};
  GetWindowRect(win32::NativeOf(window), &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

std::uint32_t WindowStyle(WindowHandle window) {
  return static_cast<std::uint32_t>(GetWindowLongW(win32::NativeOf(window), GWL_STYLE));
}

std::uint32_t WindowExtendedStyle(WindowHandle window) {
  return static_cast<std::uint32_t>(GetWindowLongW(win32::NativeOf(window), GWL_EXSTYLE));
}

bool IsWindowVisible(WindowHandle window) {
  return ::IsWindowVisible(win32::NativeOf(window)) != FALSE;
}

bool IsWindowMinimized(WindowHandle window) {
  return IsIconic(win32::NativeOf(window)) != FALSE;
}

MonitorHandle MonitorOf(WindowHandle window) {
  return win32::ToDoor<MonitorHandle>(MonitorFromWindow(win32::NativeOf(window), MONITOR_DEFAULTTONEAREST));
}

std::uint32_t WindowProcessId(WindowHandle window) {
  DWORD processId = 0;
  GetWindowThreadProcessId(win32::NativeOf(window), &processId);
  return processId;
}

std::wstring InputDesktopName() {
  const InputDesktop desktop(OpenInputDesktop(0, FALSE, DESKTOP_READOBJECTS));
  std::array<wchar_t, 260> name{};
  if (!desktop) return {};
  if (GetUserObjectInformationW(desktop.get(), UOI_NAME, name.data(), sizeof name, nullptr) == FALSE) return {};
  return win32::TextOf(name);
}

Size PrimaryScreenSize() {
  return {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace os

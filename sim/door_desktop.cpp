#include "os/desktop.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title) {
  if (sim::Enter<&FindTopWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.FindIn(WindowHandle::None, className, title);
}

WindowHandle FindChildWindow(WindowHandle parent, const wchar_t* className) {
  if (sim::Enter<&FindChildWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.FindIn(parent, className);
}

std::vector<WindowHandle> TopWindows() {
  const auto call = sim::Enter<&TopWindows>();
  if (call.failed()) return {};
  std::vector<WindowHandle> windows;
  for (const auto& window : Machine().desktop.Windows()) {
    if (window.parent == WindowHandle::None) windows.push_back(window.handle);
  }
  windows.resize(call.Shortened(windows.size()));
  return windows;
}

WindowHandle WindowAt(Point point) {
  if (sim::Enter<&WindowAt>().failed()) return WindowHandle::None;
  return Machine().desktop.At(point);
}

WindowHandle ForegroundWindow() {
  if (sim::Enter<&ForegroundWindow>().failed() || !Machine().desktop.userIsHere) return WindowHandle::None;
  return Machine().desktop.Foreground();
}

WindowHandle RootWindow(WindowHandle window) {
  if (sim::Enter<&RootWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.Root(window);
}

WindowHandle RootOwner(WindowHandle window) {
  if (sim::Enter<&RootOwner>().failed()) return WindowHandle::None;
  return Machine().desktop.RootOwner(window);
}

WindowHandle DesktopWindow() {
  sim::Enter<&DesktopWindow>();
  return sim::Desktop::kDesktopWindow;
}

WindowHandle ShellWindow() {
  sim::Enter<&ShellWindow>();
  return Machine().desktop.Shell();
}

bool IsWindow(WindowHandle window) {
  if (sim::Enter<&IsWindow>().failed()) return false;
  return window == sim::Desktop::kDesktopWindow || Machine().desktop.Find(window) != nullptr;
}

std::wstring WindowClassName(WindowHandle window) {
  if (sim::Enter<&WindowClassName>().failed()) return {};
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? std::wstring() : found->className.substr(0, 259);
}

std::wstring WindowTitle(WindowHandle window) {
  if (sim::Enter<&WindowTitle>().failed()) return {};
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? std::wstring() : found->title.substr(0, 259);
}

Rect WindowRect(WindowHandle window) {
  if (sim::Enter<&WindowRect>().failed()) return {};
  if (window == sim::Desktop::kDesktopWindow) return Machine().displays.PrimaryArea();
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? Rect{} : found->area;
}

std::uint32_t WindowStyle(WindowHandle window) {
  if (sim::Enter<&WindowStyle>().failed()) return 0;
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? 0 : found->StyleBits();
}

std::uint32_t WindowExtendedStyle(WindowHandle window) {
  if (sim::Enter<&WindowExtendedStyle>().failed()) return 0;
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? 0 : found->extendedStyle;
}

bool IsWindowVisible(WindowHandle window) {
  if (sim::Enter<&IsWindowVisible>().failed()) return false;
  return Machine().desktop.IsVisible(window);
}

bool IsWindowMinimized(WindowHandle window) {
  if (sim::Enter<&IsWindowMinimized>().failed()) return false;
  const auto* found = Machine().desktop.Find(window);
  return found != nullptr && found->state == sim::ShowState::Minimized;
}

MonitorHandle MonitorOf(WindowHandle window) {
  if (sim::Enter<&MonitorOf>().failed()) return MonitorHandle::None;
  return Machine().desktop.MonitorOf(window);
}

std::uint32_t WindowProcessId(WindowHandle window) {
  if (sim::Enter<&WindowProcessId>().failed()) return 0;
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? 0 : found->processId;
}

std::wstring InputDesktopName() {
  if (sim::Enter<&InputDesktopName>().failed()) return {};
  return Machine().sessions.IsSecureDesktopUp() ? L"Winlogon" : L"Default";
}

Size PrimaryScreenSize() {
  sim::Enter<&PrimaryScreenSize>();
  const auto area = Machine().displays.PrimaryArea();
  return {area.right - area.left, area.bottom - area.top};
}

}  // namespace os

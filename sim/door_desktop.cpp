#include "os/desktop.h"
#include "sim/laptop.h"

namespace os {

using sim::Machine;

WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title) {
  if (sim::Enter<&FindTopWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.Find(className, title);
}

WindowHandle ForegroundWindow() {
  if (sim::Enter<&ForegroundWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.Foreground();
}

std::wstring WindowClassName(WindowHandle window) {
  if (sim::Enter<&WindowClassName>().failed()) return {};
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? std::wstring() : found->className.substr(0, 259);
}

WindowHandle RootWindow(WindowHandle window) {
  if (sim::Enter<&RootWindow>().failed()) return WindowHandle::None;
  return Machine().desktop.Find(window) == nullptr ? WindowHandle::None : window;
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
  return found == nullptr ? 0 : found->style;
}

WindowHandle DesktopWindow() {
  sim::Enter<&DesktopWindow>();
  return sim::Desktop::kDesktopWindow;
}

WindowHandle ShellWindow() {
  sim::Enter<&ShellWindow>();
  return Machine().desktop.Shell();
}

Size PrimaryScreenSize() {
  sim::Enter<&PrimaryScreenSize>();
  const auto area = Machine().displays.PrimaryArea();
  return {area.right - area.left, area.bottom - area.top};
}

std::uint32_t WindowProcessId(WindowHandle window) {
  if (sim::Enter<&WindowProcessId>().failed()) return 0;
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? 0 : found->processId;
}

}  // namespace os

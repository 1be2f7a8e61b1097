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

std::uint32_t WindowProcessId(WindowHandle window) {
  if (sim::Enter<&WindowProcessId>().failed()) return 0;
  const auto* found = Machine().desktop.Find(window);
  return found == nullptr ? 0 : found->processId;
}

}  // namespace os

#include "os/hooks.h"
#include "os/watches.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

void WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  if (!sim::Enter<&WatchKeyboard>().failed()) Machine().input.Watch(onKey);
}

void WatchMouse(const std::function<void(MouseEvent event, Point pointer)>& onMouse) {
  if (!sim::Enter<&WatchMouse>().failed()) Machine().mouse.Watch(onMouse);
}

void HookAgain(InputHook hook) {
  if (sim::Enter<&HookAgain>().failed()) return;
  auto& [keyboard, mouse] = Machine().hooks;
  (hook == InputHook::Mouse ? mouse : keyboard).HookAgain();
}

void WatchWindowEvents(
    const std::vector<WindowEventRange>& ranges,
    const std::function<void(WindowEvent event, WindowHandle window, std::int32_t object)>& onEvent) {
  if (!sim::Enter<&WatchWindowEvents>().failed()) Machine().windowEvents.Watch(ranges, onEvent);
}

void WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange) {
  if (sim::Enter<&WatchRegistryKey>().failed() || !Machine().registry.Has(key)) return;
  Machine().watches.WatchKey(key, onChange);
}

void WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents) {
  if (!sim::Enter<&WatchSystemLog>().failed()) Machine().watches.WatchLog(query, onEvents);
}

}  // namespace os

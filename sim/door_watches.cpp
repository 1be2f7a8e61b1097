#include "os/hooks.h"
#include "os/watches.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {

using sim::Machine;

Status WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  if (const auto call = sim::Enter<&WatchKeyboard>(); call.failed()) return Error{call.error()};
  Machine().input.Watch(onKey);
  return Done{};
}

Status WatchMouse(const std::function<void(MouseEvent event, Point pointer)>& onMouse) {
  if (const auto call = sim::Enter<&WatchMouse>(); call.failed()) return Error{call.error()};
  Machine().mouse.Watch(onMouse);
  return Done{};
}

bool HookAgain(InputHook hook) {
  if (sim::Enter<&HookAgain>().failed()) return false;
  auto& [keyboard, mouse] = Machine().hooks;
  return (hook == InputHook::Mouse ? mouse : keyboard).HookAgain();
}

Status WatchWindowEvents(
    const std::vector<WindowEventRange>& ranges,
    const std::function<void(WindowEvent event, WindowHandle window, std::int32_t object)>& onEvent) {
  if (const auto call = sim::Enter<&WatchWindowEvents>(); call.failed()) return Error{call.error()};
  Machine().windowEvents.Watch(ranges, onEvent);
  return Done{};
}

Status WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange) {
  if (const auto call = sim::Enter<&WatchRegistryKey>(); call.failed()) return Error{call.error()};
  if (!Machine().registry.Has(key)) return Error{sim::kFileNotFound};
  Machine().watches.WatchKey(key, onChange);
  return Done{};
}

Status WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents) {
  if (const auto call = sim::Enter<&WatchSystemLog>(); call.failed()) return Error{call.error()};
  Machine().watches.WatchLog(query, onEvents);
  return Done{};
}

}  // namespace os

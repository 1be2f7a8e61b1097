// How windows are shown, moved and placed.

#include <utility>

#include "sim/desktop.h"
#include "sim/system_errors.h"

namespace sim {

using os::ShowCommand;
using os::WindowHandle;

namespace {

constexpr std::uint32_t kRestoreToMaximized = 2;  // WPF_RESTORETOMAXIMIZED
constexpr os::Rect kMinimizedArea = {-32000, -32000, -31840, -31972};

ShowState StateAfter(const Window& window, ShowCommand command) {
  switch (command) {
    case ShowCommand::ShowMinimized:
    case ShowCommand::Minimize:
      return ShowState::Minimized;
    case ShowCommand::ShowMaximized:
      return ShowState::Maximized;
    case ShowCommand::ShowNormal:
      return ShowState::Normal;
    case ShowCommand::Restore:
      return window.restoresToMaximized ? ShowState::Maximized : ShowState::Normal;
    case ShowCommand::Hide:
    case ShowCommand::Show:
      break;
  }
  return window.state;
}

os::Rect Shifted(const os::Rect& area, std::int32_t dx, std::int32_t dy) {
  return {area.left + dx, area.top + dy, area.right + dx, area.bottom + dy};
}

}  // namespace

/// Where (0, 0) of a placement lies for this window.
os::Point Desktop::PlacementOrigin(const Window& window) const {
  const auto monitor = MonitorUnder(displays_.PrimaryArea());
  if (!monitor || (window.extendedStyle & kWsExToolWindow) != 0) return {};
  return {monitor->work.left - monitor->monitor.left, monitor->work.top - monitor->monitor.top};
}

/// The size a window gives itself when it comes from one area to another, where the scale may be another.
os::Rect Desktop::Adapted(const Window& window, const os::Rect& to) const {
  const auto from = MonitorUnder(window.area), onto = MonitorUnder(to);
  if (!window.adaptsToScale || window.state == ShowState::Minimized || !from || !onto) return to;
  const std::int64_t before = DpiOf(from->handle), after = DpiOf(onto->handle);
  const auto scaled = [=](std::int32_t length) { return static_cast<std::int32_t>(length * after / before); };
  return {to.left, to.top, to.left + scaled(to.right - to.left), to.top + scaled(to.bottom - to.top)};
}

void Desktop::SetArea(Window& window, const os::Rect& area) {
  const auto before = std::exchange(window.area, area);
  if (before == area) return;
  for (auto& each : windows_) {
    if (each.parent == window.handle) {
      each.area = Shifted(each.area, area.left - before.left, area.top - before.top);
    }
  }
  Raise(os::WindowEvent::LocationChange, window.handle);
}

void Desktop::Enter(Window& window, ShowState state) {
  const auto before = window.state;
  if (before == state) return;
  const auto normalArea = window.NormalArea();
  const auto monitor = MonitorUnder(before == ShowState::Minimized ? normalArea : window.area);
  window.normalArea = normalArea;
  window.state = state;
  window.restoresToMaximized = state == ShowState::Minimized && before == ShowState::Maximized;
  if (state == ShowState::Minimized) SetArea(window, kMinimizedArea);
  if (state == ShowState::Maximized) SetArea(window, monitor ? monitor->work : normalArea);
  if (state == ShowState::Normal) SetArea(window, normalArea);
}

void Desktop::TellProgram(WindowHandle window) {
  const auto* changed = Find(window);
  if (changed == nullptr) return;
  if (const auto onChange = changed->onChange) onChange(window);
}

bool Desktop::Show(WindowHandle handle, ShowCommand command) {
  auto* window = Find(handle);
  if (window == nullptr) return false;
  if (command == ShowCommand::ShowMaximized && window->refusesMoves) return false;
  const bool wasVisible = window->visible;
  window->visible = command != ShowCommand::Hide;
  Enter(*window, StateAfter(*window, command));
  if (window->TakesOver()) {
    SetForeground(handle);
  } else if (foreground_ == handle && !window->IsUp()) {
    PassOnForeground();
  }
  TellProgram(handle);
  return wasVisible;
}

os::Status Desktop::Move(WindowHandle handle, const os::Rect& area) {
  auto* window = Find(handle);
  if (window == nullptr) return os::Error{kInvalidWindowHandle};
  if (window->refusesMoves) return os::Error{kAccessDenied};
  SetArea(*window, Adapted(*window, area));
  TellProgram(handle);
  if (Find(handle) == nullptr) return os::Error{kInvalidWindowHandle};
  return os::Done{};
}

void Desktop::Drag(WindowHandle handle, const os::Rect& area) {
  auto* window = Find(handle);
  if (window == nullptr) return;
  window->state = ShowState::Normal;
  SetArea(*window, area);
  TellProgram(handle);
}

os::Result<os::WindowPlacement> Desktop::Door::Placement(WindowHandle handle) const {
  const auto* window = Find(handle);
  if (window == nullptr) return os::Error{kInvalidWindowHandle};
  const auto origin = PlacementOrigin(*window);
  os::WindowPlacement placement;
  placement.minimizedPosition = placement.maximizedPosition = {-1, -1};  // nobody chose them
  placement.rcNormalPosition = Shifted(window->NormalArea(), -origin.x, -origin.y);
  if (window->restoresToMaximized) placement.flags = kRestoreToMaximized;
  if (window->state == ShowState::Minimized) placement.showCmd = ShowCommand::ShowMinimized;
  if (window->state == ShowState::Maximized) placement.showCmd = ShowCommand::ShowMaximized;
  return placement;
}

os::Status Desktop::Door::SetPlacement(WindowHandle handle, const os::WindowPlacement& placement) {
  auto* window = Find(handle);
  if (window == nullptr) return os::Error{kInvalidWindowHandle};
  if (window->refusesMoves) return os::Error{kAccessDenied};
  const auto origin = PlacementOrigin(*window);
  const auto normalArea = Shifted(placement.rcNormalPosition, origin.x, origin.y);
  // A maximised window stays on its monitor, whatever its normal rectangle is.
  if (window->state == ShowState::Normal) SetArea(*window, normalArea);
  window->normalArea = normalArea;
  Show(handle, placement.showCmd);
  window = Find(handle);
  if (window == nullptr) return os::Error{kInvalidWindowHandle};
  if (window->state == ShowState::Minimized) {
    window->restoresToMaximized = (placement.flags & kRestoreToMaximized) != 0;
  }
  return os::Done{};
}

}  // namespace sim

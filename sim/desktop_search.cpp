// Finding windows, and how they hang together.

#include <algorithm>

#include "sim/desktop.h"
#include "sim/text.h"

namespace sim {
namespace {

bool Contains(const os::Rect& area, os::Point point) {
  return point.x >= area.left && point.x < area.right && point.y >= area.top && point.y < area.bottom;
}

}  // namespace

using os::WindowHandle;

Window* Desktop::Find(WindowHandle window) {
  const auto found =
      std::find_if(windows_.begin(), windows_.end(), [window](const Window& each) { return each.handle == window; });
  return found == windows_.end() ? nullptr : &*found;
}

const Window* Desktop::Find(WindowHandle window) const {
  return const_cast<Desktop*>(this)->Find(window);
}

WindowHandle Desktop::Find(const std::wstring& className, const wchar_t* title) const {
  return FindIn(WindowHandle::None, className.c_str(), title);
}

WindowHandle Desktop::FindIn(WindowHandle parent, const wchar_t* className, const wchar_t* title) const {
  const auto fits = [](const std::wstring& name, const wchar_t* wanted) {
    return wanted == nullptr || Lower(name) == Lower(wanted);
  };
  for (const auto& window : windows_) {
    if (window.parent == parent && fits(window.className, className) && fits(window.title, title)) return window.handle;
  }
  return WindowHandle::None;
}

WindowHandle Desktop::At(os::Point point) const {
  auto found = WindowHandle::None;
  for (bool deeper = true; deeper;) {
    const auto inside = std::find_if(windows_.begin(), windows_.end(), [found, point](const Window& each) {
      return each.parent == found && each.visible && each.state != ShowState::Minimized && Contains(each.area, point);
    });
    deeper = inside != windows_.end();
    if (deeper) found = inside->handle;
  }
  return found;
}

WindowHandle Desktop::Root(WindowHandle window) const {
  const auto* found = Find(window);
  if (found == nullptr) return WindowHandle::None;
  return found->parent == WindowHandle::None ? window : Root(found->parent);
}

WindowHandle Desktop::RootOwner(WindowHandle window) const {
  const auto* found = Find(window);
  if (found == nullptr) return WindowHandle::None;
  const auto next = found->parent == WindowHandle::None ? found->owner : found->parent;
  return next == WindowHandle::None ? window : RootOwner(next);
}

bool Desktop::IsVisible(WindowHandle window) const {
  const auto* found = Find(window);
  if (found == nullptr) return false;
  return found->visible && (found->parent == WindowHandle::None || IsVisible(found->parent));
}

os::MonitorHandle Desktop::MonitorOf(WindowHandle window) const {
  const auto* found = Find(window);
  auto area = displays_.PrimaryArea();
  if (found != nullptr) area = found->state == ShowState::Minimized ? found->NormalArea() : found->area;
  const auto monitor = MonitorUnder(area);
  return monitor ? monitor->handle : os::MonitorHandle::None;
}

}  // namespace sim

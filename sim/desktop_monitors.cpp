// The displays as windows see them.

#include <algorithm>
#include <utility>

#include "sim/desktop.h"

namespace sim {
namespace {

// Handles tell the screen by its place in the list.
os::MonitorHandle HandleOf(std::size_t index) {
  return static_cast<os::MonitorHandle>(0x10001 + 2 * index);
}

/// The square of the distance between two areas; 0 when they meet.
std::int64_t Distance(const os::Rect& a, const os::Rect& b) {
  const auto dx = std::max<std::int64_t>({0, std::int64_t{b.left} - a.right, std::int64_t{a.left} - b.right});
  const auto dy = std::max<std::int64_t>({0, std::int64_t{b.top} - a.bottom, std::int64_t{a.top} - b.bottom});
  return dx * dx + dy * dy;
}

/// Takes a taskbar's area off the monitor it lies on. It stands at the edge that it reaches from side to side.
void TakeOff(os::Rect& work, const os::Rect& monitor, const os::Rect& bar) {
  if (Overlap(monitor, bar) == 0) return;
  if (bar.right - bar.left >= bar.bottom - bar.top) {
    if (bar.top <= monitor.top) {
      work.top = std::max(work.top, bar.bottom);
    } else {
      work.bottom = std::min(work.bottom, bar.top);
    }
  } else if (bar.left <= monitor.left) {
    work.left = std::max(work.left, bar.right);
  } else {
    work.right = std::min(work.right, bar.left);
  }
}

}  // namespace

os::Rect Desktop::WorkArea(const os::Rect& monitor) const {
  auto work = monitor;
  for (const auto& window : windows_) {
    const bool isTaskbar = window.className == L"Shell_TrayWnd" || window.className == L"Shell_SecondaryTrayWnd";
    if (isTaskbar && window.visible) TakeOff(work, monitor, window.area);
  }
  return work;
}

std::vector<os::Monitor> Desktop::Monitors() const {
  std::vector<os::Monitor> monitors;
  std::size_t index = 0;
  for (const auto& screen : displays_.Screens()) {
    const auto handle = HandleOf(index++);
    if (!screen.HasArea() || displays_.MirrorsFirst(screen)) continue;
    monitors.push_back({handle, screen.Area(), WorkArea(screen.Area()), screen.IsPrimary() ? 1U : 0U, screen.gdiName});
  }
  return monitors;
}

std::optional<os::Monitor> Desktop::MonitorUnder(const os::Rect& area) const {
  const auto monitors = Monitors();
  if (monitors.empty()) return std::nullopt;
  const auto rank = [&](const os::Monitor& monitor) {
    return std::pair(-Overlap(monitor.monitor, area), Distance(monitor.monitor, area));
  };
  return *std::min_element(monitors.begin(), monitors.end(),
                           [&](const auto& a, const auto& b) { return rank(a) < rank(b); });
}

std::uint32_t Desktop::DpiOf(os::MonitorHandle monitor) const {
  const auto monitors = Monitors();
  const auto found =
      std::find_if(monitors.begin(), monitors.end(), [=](const auto& each) { return each.handle == monitor; });
  return found == monitors.end() ? 96 : displays_.FindGdiName(found->device)->dpi;
}

os::Point Desktop::Onto(os::Point point) const {
  const auto monitor = MonitorUnder({point.x, point.y, point.x + 1, point.y + 1});
  if (!monitor) return point;
  const auto& area = monitor->monitor;
  return {std::clamp(point.x, area.left, area.right - 1), std::clamp(point.y, area.top, area.bottom - 1)};
}

}  // namespace sim

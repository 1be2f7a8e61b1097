#include "sim/window.h"

#include "os/desktop.h"

namespace sim {
namespace {

constexpr std::uint32_t kWsChild = 0x4000'0000;
constexpr std::uint32_t kWsExTopmost = 0x8;

}  // namespace

std::uint32_t Window::StyleBits() const {
  auto bits = style & ~(os::kWsVisible | os::kWsMinimize | os::kWsMaximize);
  if (visible) bits |= os::kWsVisible;
  if (state == ShowState::Minimized) bits |= os::kWsMinimize;
  if (state == ShowState::Maximized) bits |= os::kWsMaximize;
  if (parent != os::WindowHandle::None) bits |= kWsChild;
  return bits;
}

bool Window::IsTopmost() const {
  return (extendedStyle & kWsExTopmost) != 0;
}

bool Window::TakesOver() const {
  return IsUp() && (extendedStyle & (kWsExToolWindow | os::kWsExNoActivate)) == 0;
}

}  // namespace sim

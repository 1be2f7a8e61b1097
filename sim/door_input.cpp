#include "os/input.h"
#include "sim/laptop.h"

namespace os {

using sim::Machine;

void WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  if (!sim::Enter<&WatchKeyboard>().failed()) Machine().input.Watch(onKey);
}

bool IsKeyDown(std::uint32_t virtualKey) {
  if (sim::Enter<&IsKeyDown>().failed()) return false;
  return Machine().input.IsDown(virtualKey);
}

void ClickLeftButton() {
  if (!sim::Enter<&ClickLeftButton>().failed()) Machine().input.ClickLeft();
}

}  // namespace os

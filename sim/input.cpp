#include "sim/input.h"

#include "os/input.h"

namespace sim {

void Input::Turn(std::uint32_t virtualKey, bool down) {
  if (!desktop_.userIsHere) return;
  if (down) {
    down_.insert(virtualKey);
  } else {
    down_.erase(virtualKey);
  }
  const auto call = [this, virtualKey, down = down_] {
    downThen_ = &down;
    (*watcher_)(virtualKey);
    downThen_ = nullptr;
  };
  hook_.Offer(call, [] {});
}

void Input::Press(std::uint32_t virtualKey) {
  Turn(virtualKey, true);
  scheduler_.SettleStory();
}

void Input::Release(std::uint32_t virtualKey) {
  Turn(virtualKey, false);
  scheduler_.SettleStory();
}

void Input::PressWinP() {
  Turn(os::kKeyLeftWindows, true);
  Turn(os::kKeyP, true);
  Turn(os::kKeyP, false);
  Turn(os::kKeyLeftWindows, false);
  scheduler_.SettleStory();
}

void Input::Door::Watch(const Watcher& onKey) {
  watcher_ = &onKey;
  hook_.Watch();
}

bool Input::Door::IsDown(std::uint32_t virtualKey) const {
  return (downThen_ != nullptr ? *downThen_ : down_).contains(virtualKey);
}

void Input::Door::EndProcess() {
  downThen_ = nullptr;
}

}  // namespace sim

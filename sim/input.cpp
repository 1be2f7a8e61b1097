#include "sim/input.h"

#include <algorithm>

#include "os/input.h"

namespace sim {

void Input::Turn(std::uint32_t virtualKey, bool down) {
  if (down) {
    down_.insert(virtualKey);
  } else {
    down_.erase(virtualKey);
  }
  if (watchers_ > 0) pending_.push_back({virtualKey, down_});
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

void Input::Door::Watch(const std::function<void(std::uint32_t)>& onKey) {
  ++watchers_;
  while (loops_.AwaitWork([this] { return !pending_.empty(); })) {
    const auto key = pending_.front();
    pending_.pop_front();
    served_ = &key;
    const auto start = scheduler_.NowMs();
    onKey(key.virtualKey);
    longestHoldUpMs_ = std::max(longestHoldUpMs_, scheduler_.NowMs() - start);
    served_ = nullptr;
  }
  --watchers_;
}

bool Input::Door::IsDown(std::uint32_t virtualKey) const {
  return (served_ != nullptr ? served_->down : down_).contains(virtualKey);
}

void Input::Door::EndProcess() {
  pending_.clear();
  served_ = nullptr;
  watchers_ = 0;
}

}  // namespace sim

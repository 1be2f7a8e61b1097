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
  loops_.Serve(pending_, longestHoldUpMs_, [&](const Key& key) {
    served_ = &key;
    onKey(key.virtualKey);
    served_ = nullptr;
  });
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

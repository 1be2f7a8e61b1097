#include "sim/input.h"

#include <algorithm>

#include "os/input.h"
#include "sim/laptop.h"

namespace sim {

void Input::Press(std::uint32_t virtualKey) {
  down_.insert(virtualKey);
  Add(virtualKey);
  Machine().Settle();
}

void Input::Release(std::uint32_t virtualKey) {
  down_.erase(virtualKey);
  Add(virtualKey);
  Machine().Settle();
}

void Input::PressWinP() {
  PressWinPQuietly();
  Machine().Settle();
}

void Input::PressWinPQuietly() {
  down_.insert(os::kKeyLeftWindows);
  Add(os::kKeyLeftWindows);
  down_.insert(os::kKeyP);
  Add(os::kKeyP);
  down_.erase(os::kKeyP);
  Add(os::kKeyP);
  down_.erase(os::kKeyLeftWindows);
  Add(os::kKeyLeftWindows);
}

void Input::Add(std::uint32_t virtualKey) {
  if (watchers_ > 0) pending_.push_back({virtualKey, down_});
}

void Input::Watch(const std::function<void(std::uint32_t)>& onKey) {
  ++watchers_;
  while (Machine().window.AwaitWork([this] { return !pending_.empty(); })) {
    const auto key = pending_.front();
    pending_.pop_front();
    served_ = &key;
    const auto start = Machine().NowMs();
    onKey(key.virtualKey);
    longestHoldUpMs_ = std::max(longestHoldUpMs_, Machine().NowMs() - start);
    served_ = nullptr;
  }
  --watchers_;
}

bool Input::IsDown(std::uint32_t virtualKey) const {
  return (served_ != nullptr ? served_->down : down_).contains(virtualKey);
}

void Input::EndProcess() {
  pending_.clear();
  served_ = nullptr;
  watchers_ = 0;
}

}  // namespace sim

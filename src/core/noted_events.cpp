#include "core/noted_events.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "core/service_window.h"
#include "core/state.h"
#include "os/messages.h"
#include "os/service_window.h"

namespace tessaview {
namespace {

using Deal = std::function<void()>;

Shared<std::deque<Deal>> gNoted;

/// A message that finds no room in the queue is not missed: the next one deals with all that is noted.
void WakeMainThread() {
  os::PostToWindow(gServiceWindow(), os::kNotedMessage, 0, 0);
}

std::optional<Deal> TakeNext() {
  return gNoted.Update([](auto& noted) -> std::optional<Deal> {
    if (noted.empty()) return std::nullopt;
    auto next = std::move(noted.front());
    noted.pop_front();
    return next;
  });
}

}  // namespace

void DealLater(std::function<void()> deal) {
  gNoted.Update([&](auto& noted) { noted.push_back(std::move(deal)); });
  WakeMainThread();
}

void DealLaterAtMost(std::size_t most, void (*deal)()) {
  const auto isIt = [deal](const Deal& each) {
    const auto* function = each.target<void (*)()>();
    return function != nullptr && *function == deal;
  };
  const auto waiting = gNoted.Ask([&](const auto& noted) { return std::count_if(noted.begin(), noted.end(), isIt); });
  if (static_cast<std::size_t>(waiting) < most) DealLater(deal);
}

void DealWithNoted() {
  while (const auto next = TakeNext()) (*next)();
}

}  // namespace tessaview

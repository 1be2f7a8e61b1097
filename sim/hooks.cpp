#include "sim/hooks.h"

#include <algorithm>
#include <utility>

namespace sim {

// ---- Events on their way ----

void Hook::Door::Offer(std::function<void()> call, std::function<void()> effect) {
  if (!isHooked_) return effect();
  events_.push_back({std::move(call), std::move(effect)});
  OfferFirst();
}

void Hook::OfferFirst() {
  if (events_.empty() || limit_) return;
  events_.front().offeredMs = scheduler_.NowMs();
  limit_ = scheduler_.After(kLimitMs, [this] { Overrun(); });
  calls_.emplace_back([this, offer = ++offer_] { CallFor(offer); });
}

/// The event may have gone on before the thread came to it, and may go on while the call lasts.
void Hook::CallFor(std::uint64_t offer) {
  const auto isHeld = [=, this] { return limit_ && offer_ == offer; };
  if (!isHeld()) return;
  if (const auto call = events_.front().call) call();
  if (!isHeld()) return;
  scheduler_.Cancel(*limit_);
  PassOn();
}

void Hook::Overrun() {
  const bool dies = ++overruns_ >= diesAtOverrun;
  PassOn();
  if (dies) DiesNow();
}

void Hook::PassOn() {
  limit_.reset();
  const auto event = std::move(events_.front());
  events_.pop_front();
  longestHoldUpMs_ = std::max(longestHoldUpMs_, scheduler_.NowMs() - event.offeredMs);
  event.effect();
  OfferFirst();
}

// ---- Its life ----

void Hook::DiesNow() {
  isHooked_ = false;
  if (const auto limit = std::exchange(limit_, {})) scheduler_.Cancel(*limit);
  for (const auto& event : std::exchange(events_, {})) event.effect();
}

void Hook::Renew() {
  isHooked_ = true;
  overruns_ = 0;
  ++timesHooked_;
}

void Hook::Door::Watch() {
  isWatched_ = true;
  Renew();
  loops_.Serve(calls_, longestHoldUpMs_, [](const auto& call) { call(); });
  EndProcess();
}

bool Hook::Door::HookAgain() {
  if (isWatched_) calls_.emplace_back([this] { Renew(); });
  return isWatched_;
}

void Hook::Door::EndProcess() {
  isWatched_ = false;
  DiesNow();
  calls_.clear();
}

void Hooks::Resume() {
  for (auto* hook : {&keyboard, &mouse}) {
    if (hook->diesAtResume) hook->DiesNow();
  }
}

void Hooks::Unlock() {
  for (auto* hook : {&keyboard, &mouse}) {
    if (hook->diesAtUnlock) hook->DiesNow();
  }
}

void Hooks::EndProcess() {
  keyboard.EndProcess();
  mouse.EndProcess();
}

}  // namespace sim

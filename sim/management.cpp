#include "sim/management.h"

#include <algorithm>
#include <iterator>

namespace sim {

void Management::ProcessStopped(const std::wstring& fileName) {
  if (!subscription_) return;
  std::string narrow;
  std::transform(fileName.begin(), fileName.end(), std::back_inserter(narrow),
                 [](wchar_t character) { return character < 0x80 ? static_cast<char>(character) : '?'; });
  stopped_.push_back(std::move(narrow));
}

os::SubscriptionHandle Management::Door::Subscribe(const std::wstring& query, const os::ProcessStopEvents& events) {
  subscription_ = {query, events};
  scheduler_.StartThread(L"management", [this] { Serve(); });
  return subscriptions_.Open({});
}

void Management::Door::Serve() {
  while (scheduler_.WaitUntil([this] { return !stopped_.empty(); })) {
    const auto name = std::move(stopped_.front());
    stopped_.pop_front();
    if (subscription_) scheduler_.CallProgram([&] { subscription_->events.stopped(name); });
  }
}

void Management::Door::Close(os::SubscriptionHandle subscription) noexcept {
  subscriptions_.Close(subscription);
  subscription_.reset();
}

void Management::Complete(std::uint32_t result) {
  if (subscription_) subscription_->events.completed(result);
}

void Management::Door::EndProcess() {
  subscription_.reset();
  stopped_.clear();
  locators_.CloseAll();
  services_.CloseAll();
  subscriptions_.CloseAll();
}

}  // namespace sim

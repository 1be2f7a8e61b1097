#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "os/process_stops.h"
#include "sim/handle_table.h"
#include "sim/scheduler.h"

namespace sim {

/// Windows management: tells who asked for it of processes that end, one after the other, on a thread of its own.
class Management {
 public:
  class Door;

  explicit Management(Scheduler& scheduler) : scheduler_(scheduler) {}

  /// The query ends by itself (SetStatus).
  void Complete(std::uint32_t result);

  [[nodiscard]] bool IsSubscribed() const { return subscription_.has_value(); }
  /// The query that was asked; empty without a subscription.
  [[nodiscard]] std::wstring Query() const { return subscription_ ? subscription_->query : L""; }
  /// Ended processes that wait to be told of, the one being told of not among them.
  [[nodiscard]] std::size_t Waiting() const { return stopped_.size(); }

 private:
  friend class Processes;
  void ProcessStopped(const std::wstring& fileName);

  struct Nothing {};
  struct Subscription {
    std::wstring query;
    os::ProcessStopEvents events;
  };
  Scheduler& scheduler_;
  HandleTable<os::LocatorHandle, Nothing> locators_;
  HandleTable<os::ManagementHandle, Nothing> services_;
  HandleTable<os::SubscriptionHandle, Nothing> subscriptions_;
  std::optional<Subscription> subscription_;
  std::deque<std::string> stopped_;
};

class Management::Door : public Management {
 public:
  using Management::Management;

  os::LocatorHandle OpenLocator() { return locators_.Open({}); }
  void Close(os::LocatorHandle locator) noexcept { locators_.Close(locator); }
  os::ManagementHandle Connect() { return services_.Open({}); }
  void Close(os::ManagementHandle services) noexcept { services_.Close(services); }
  os::SubscriptionHandle Subscribe(const std::wstring& query, const os::ProcessStopEvents& events);
  void Close(os::SubscriptionHandle subscription) noexcept;
  void EndProcess();

 private:
  void Serve();
};

}  // namespace sim

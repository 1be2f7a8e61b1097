#include "os/process_stops.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

Status JoinComMultithreaded() {
  if (const auto call = sim::Enter<&JoinComMultithreaded>(); call.failed()) return Error{call.error()};
  return Done{};
}

void LeaveCom() {}

Status InitializeComSecurity() {
  if (const auto call = sim::Enter<&InitializeComSecurity>(); call.failed()) return Error{call.error()};
  return Done{};
}

void ReleaseLocator(LocatorHandle locator) noexcept {
  if (sim::IsOn()) Machine().management.Close(locator);
}

Result<ManagementLocator> CreateManagementLocator() {
  if (const auto call = sim::Enter<&CreateManagementLocator>(); call.failed()) return Error{call.error()};
  return ManagementLocator(Machine().management.OpenLocator());
}

void ReleaseManagement(ManagementHandle services) noexcept {
  if (sim::IsOn()) Machine().management.Close(services);
}

Result<Management> ConnectToManagement(const ManagementLocator& /*locator*/, const wchar_t* /*nameSpace*/) {
  if (const auto call = sim::Enter<&ConnectToManagement>(); call.failed()) return Error{call.error()};
  return Management(Machine().management.Connect());
}

Status SetManagementBlanket(const Management& /*services*/) {
  if (const auto call = sim::Enter<&SetManagementBlanket>(); call.failed()) return Error{call.error()};
  return Done{};
}

void CancelSubscription(SubscriptionHandle subscription) noexcept {
  if (sim::IsOn()) Machine().management.Close(subscription);
}

Result<ProcessStopSubscription> SubscribeToProcessStops(const Management& /*services*/, const wchar_t* query,
                                                        const ProcessStopEvents& events) {
  if (const auto call = sim::Enter<&SubscribeToProcessStops>(); call.failed()) return Error{call.error()};
  return ProcessStopSubscription(Machine().management.Subscribe(query, events));
}

}  // namespace os

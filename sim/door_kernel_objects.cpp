#include "os/kernel_objects.h"
#include "sim/parts.h"
#include "sim/race_view.h"

namespace os {

using sim::Machine;

void CloseKernelObject(KernelObject object) noexcept {
  if (sim::IsOn()) Machine().events.Close(object);
}

NamedMutex CreateNamedMutex(const wchar_t* name) {
  if (const auto call = sim::Enter<&CreateNamedMutex>(); call.failed()) return {.error = call.error()};
  return Machine().events.CreateMutex(name);
}

Event OpenNamedEvent(const wchar_t* name) {
  if (sim::Enter<&OpenNamedEvent>().failed()) return Event();
  return Machine().events.OpenEvent(name);
}

Event NewEvent() {
  if (sim::Enter<&NewEvent>().failed()) return Event();
  return Machine().events.NewEvent();
}

bool AwaitEvent(const Event& event, std::uint32_t limitMs) {
  if (sim::Enter<&AwaitEvent>().failed() || !event) return false;
  auto& laptop = Machine();
  const auto isSignalled = [&] {
    const auto* signal = laptop.events.SignalOf(event.get());
    return signal != nullptr && *signal;
  };
  if (!laptop.scheduler.WaitUntil(isSignalled, laptop.scheduler.DeadlineIn(limitMs))) return false;
  sim::Acquires(laptop.events.SignalOf(event.get()));
  return true;
}

void SignalEvent(const Event& event) {
  if (sim::Enter<&SignalEvent>().failed()) return;
  if (auto* signal = Machine().events.SignalOf(event.get())) {
    sim::Releases(signal);
    *signal = true;
  }
}

void ResetEvent(const Event& event) {
  if (sim::Enter<&ResetEvent>().failed()) return;
  if (auto* signal = Machine().events.SignalOf(event.get())) *signal = false;
}

}  // namespace os

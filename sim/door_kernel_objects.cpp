#include "os/kernel_objects.h"
#include "sim/parts.h"

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
  auto& scheduler = Machine().scheduler;
  return scheduler.WaitUntil([&] { return Machine().events.IsSignalled(event.get()); }, scheduler.DeadlineIn(limitMs));
}

void SignalEvent(const Event& event) {
  if (!sim::Enter<&SignalEvent>().failed()) Machine().events.SetEvent(event.get(), true);
}

void ResetEvent(const Event& event) {
  if (!sim::Enter<&ResetEvent>().failed()) Machine().events.SetEvent(event.get(), false);
}

}  // namespace os

#include "sim/kernel_objects.h"

#include "sim/system_errors.h"

namespace sim {

bool KernelObjects::HoldsMutex(const std::wstring& mutex) const {
  bool holds = false;
  handles_.ForEach([&](const Opened& opened) { holds = holds || (opened.isMutex && opened.name == mutex); });
  return holds;
}

os::NamedMutex KernelObjects::Door::CreateMutex(const std::wstring& name) {
  if (denied_.contains(name)) return {.error = kAccessDenied};
  if (events_.contains(name)) return {.error = kInvalidHandle};  // events and mutexes share their names
  const bool existed = heldElsewhere_.contains(name) || HoldsMutex(name);
  return {.mutex = os::Mutex(handles_.Open({.name = name, .isMutex = true})), .alreadyExisted = existed};
}

os::Event KernelObjects::Door::OpenEvent(const std::wstring& name) {
  if (!events_.contains(name)) return os::Event();
  return os::Event(handles_.Open({.name = name, .isMutex = false}));
}

os::Event KernelObjects::Door::NewEvent() {
  const auto name = L"(unnamed " + std::to_wstring(++unnamed_) + L")";
  Add(name);
  return OpenEvent(name);
}

bool* KernelObjects::Door::SignalOf(os::KernelObject event) {
  const auto* opened = handles_.Find(event);
  if (opened == nullptr || opened->isMutex) return nullptr;
  const auto found = events_.find(opened->name);
  return found == events_.end() ? nullptr : &found->second;
}

}  // namespace sim

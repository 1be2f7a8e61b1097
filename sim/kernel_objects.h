#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "os/kernel_objects.h"
#include "sim/handle_table.h"

namespace sim {

/// The named events and mutexes of the machine.
class KernelObjects {
 public:
  class Door;

  static constexpr auto kPowerEvent = L"Global\\NORV PRDXSrv Tessaview Power Event";
  static constexpr auto kSwitchingEvent = L"Global\\NORV PRDXSrv Tessaview Switching Event";

  void Add(const std::wstring& name, bool signalled = false) { events_[name] = signalled; }
  void Remove(const std::wstring& name) { events_.erase(name); }
  void Signal(const std::wstring& name, bool signalled = true) { events_.at(name) = signalled; }
  [[nodiscard]] bool Signalled(const std::wstring& name) const { return events_.at(name); }

  /// Another process holds a mutex of this name.
  void HoldElsewhere(const std::wstring& mutex) { heldElsewhere_.insert(mutex); }
  /// The same, and it lets nobody else open that.
  void DenyElsewhere(const std::wstring& mutex) { denied_.insert(mutex); }
  /// Whether this process holds the mutex open.
  [[nodiscard]] bool HoldsMutex(const std::wstring& mutex) const;

  [[nodiscard]] std::size_t OpenHandles() const { return handles_.size(); }

 private:
  struct Opened {
    std::wstring name;
    bool isMutex = false;
  };
  std::map<std::wstring, bool> events_ = {{kPowerEvent, false}, {kSwitchingEvent, false}};
  int unnamed_ = 0;
  std::set<std::wstring> heldElsewhere_, denied_;  // mutexes
  HandleTable<os::KernelObject, Opened> handles_;
};

class KernelObjects::Door : public KernelObjects {
 public:
  os::NamedMutex CreateMutex(const std::wstring& name);
  os::Event OpenEvent(const std::wstring& name);
  os::Event NewEvent();
  /// Whether the event is signalled, to be read and set; null for what is no event.
  [[nodiscard]] bool* SignalOf(os::KernelObject event);
  void Close(os::KernelObject object) noexcept { handles_.Close(object); }
  void EndProcess() { handles_.CloseAll(); }
};

}  // namespace sim

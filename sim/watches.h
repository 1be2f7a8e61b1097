#pragma once

#include <functional>
#include <list>
#include <string>

#include "sim/scheduler.h"

namespace sim {

/// Who waits for changes of the registry, and for events of the system's log. What changes while a watcher is at work
/// is told to it afterwards, once.
class Watches {
 public:
  explicit Watches(Scheduler& scheduler) : scheduler_(scheduler) {}

  /// A key, or a value of it, was made, written or removed.
  void RegistryChanged(const std::wstring& key);

  /// The kernel writes to the log that the machine woke, and from which state (SYSTEM_POWER_STATE; 4 asleep, 5
  /// hibernated). The watchers' queries are not evaluated: those that name event 107 and the state are told.
  void Woke(int state);

  void WatchKey(const std::wstring& key, const std::function<void()>& onChange);
  void WatchLog(const std::wstring& query, const std::function<void()>& onEvents);
  void EndProcess();

 private:
  struct Watcher {
    std::wstring what;  // the key in small letters, or the query
    bool isDue = false;
  };
  using Watchers = std::list<Watcher>;  // a list, so that references stay good
  void Serve(Watchers& watchers, std::wstring what, const std::function<void()>& onChange);

  Scheduler& scheduler_;
  Watchers keys_, logs_;
};

}  // namespace sim

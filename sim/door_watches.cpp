#include "os/watches.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

void WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange) {
  if (sim::Enter<&WatchRegistryKey>().failed() || !Machine().registry.Has(key)) return;
  Machine().watches.WatchKey(key, onChange);
}

void WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents) {
  if (!sim::Enter<&WatchSystemLog>().failed()) Machine().watches.WatchLog(query, onEvents);
}

}  // namespace os

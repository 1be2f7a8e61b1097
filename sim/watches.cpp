#include "sim/watches.h"

#include <utility>

#include "sim/text.h"

namespace sim {

void Watches::RegistryChanged(const std::wstring& key) {
  const auto changed = Lower(key);
  for (auto& [watched, isDue] : keys_) isDue = isDue || (changed + L'\\').starts_with(watched + L'\\');
}

void Watches::Woke(int state) {
  const auto named = L"='" + std::to_wstring(state) + L"'";
  for (auto& [query, isDue] : logs_) {
    const bool asks = query.find(L"EventID=107") != std::wstring::npos && query.find(named) != std::wstring::npos;
    isDue = isDue || asks;
  }
}

void Watches::Serve(Watchers& watchers, std::wstring what, const std::function<void()>& onChange) {
  auto& own = watchers.emplace_back(Watcher{std::move(what)});
  while (scheduler_.WaitUntil([&own] { return own.isDue; })) {
    own.isDue = false;
    scheduler_.CallProgram(onChange);
  }
}

void Watches::WatchKey(const std::wstring& key, const std::function<void()>& onChange) {
  Serve(keys_, Lower(key), onChange);
}

void Watches::WatchLog(const std::wstring& query, const std::function<void()>& onEvents) {
  Serve(logs_, query, onEvents);
}

void Watches::EndProcess() {
  keys_.clear();
  logs_.clear();
}

}  // namespace sim

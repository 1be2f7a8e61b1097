#include "os/watches.h"

#include <windows.h>

#include <winevt.h>

#include <array>

#include "os/win32/win32_support.h"

namespace os {
namespace {

struct EventQueryCloser {
  void operator()(void* handle) const noexcept { EvtClose(handle); }
};
using EventQuery = std::unique_ptr<void, EventQueryCloser>;

/// Signalled once for each wait.
win32::LocalHandle MakeSignal() {
  return win32::LocalHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
}

bool Await(const win32::LocalHandle& signal) {
  return WaitForSingleObject(signal.get(), INFINITE) == WAIT_OBJECT_0;
}

/// Has the next change signalled, once.
bool ListenOnce(const win32::RegistryKey& key, const win32::LocalHandle& signal) {
  return RegNotifyChangeKeyValue(key.get(), TRUE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, signal.get(),
                                 TRUE) == ERROR_SUCCESS;
}

/// Takes the events that have come; false when there were none, because those before had been taken together with them.
bool TakeEvents(const EventQuery& subscription) {
  constexpr DWORD kAtOnce = 16;
  std::array<EVT_HANDLE, kAtOnce> events{};
  DWORD count = 0;
  bool took = false;
  while (EvtNext(subscription.get(), kAtOnce, events.data(), INFINITE, 0, &count) != FALSE) {
    for (auto* const event : std::span(events).first(count)) EvtClose(event);
    took = true;
  }
  return took;
}

}  // namespace

void WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_NOTIFY | KEY_WOW64_64KEY, &opened) != ERROR_SUCCESS) return;
  const win32::RegistryKey watched(opened);
  const auto signal = MakeSignal();
  if (!signal || !ListenOnce(watched, signal)) return;
  while (Await(signal)) {
    // Before the change is told, so that one that comes meanwhile is signalled too.
    const bool listens = ListenOnce(watched, signal);
    onChange();
    if (!listens) return;
  }
}

void WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents) {
  const auto signal = MakeSignal();
  if (!signal) return;
  const EventQuery subscription(
      EvtSubscribe(nullptr, signal.get(), L"System", query, nullptr, nullptr, nullptr, EvtSubscribeToFutureEvents));
  if (!subscription) return;
  while (Await(signal)) {
    if (TakeEvents(subscription)) onEvents();
  }
}

}  // namespace os

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
Status ListenOnce(const win32::RegistryKey& key, const win32::LocalHandle& signal) {
  const DWORD changes = REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET;
  const auto code = RegNotifyChangeKeyValue(key.get(), TRUE, changes, signal.get(), TRUE);
  return win32::DoneOrCode(static_cast<ULONG>(code));
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

Status WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange) {
  HKEY opened = nullptr;
  const LSTATUS code = RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_NOTIFY | KEY_WOW64_64KEY, &opened);
  if (code != ERROR_SUCCESS) return win32::DoneOrCode(static_cast<ULONG>(code));
  const win32::RegistryKey watched(opened);
  const auto signal = MakeSignal();
  if (!signal) return win32::LastError();
  auto listens = ListenOnce(watched, signal);
  while (listens) {
    if (!Await(signal)) return win32::LastError();
    // Before the change is told, so that one that comes meanwhile is signalled too.
    listens = ListenOnce(watched, signal);
    onChange();
  }
  return listens;
}

Status WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents) {
  const auto signal = MakeSignal();
  if (!signal) return win32::LastError();
  const EventQuery subscription(
      EvtSubscribe(nullptr, signal.get(), L"System", query, nullptr, nullptr, nullptr, EvtSubscribeToFutureEvents));
  if (!subscription) return win32::LastError();
  while (Await(signal)) {
    if (TakeEvents(subscription)) onEvents();
  }
  return win32::LastError();
}

}  // namespace os

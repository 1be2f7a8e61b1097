#pragma once

#include <functional>
#include <string>

#include "os/types.h"
#include "os/waiting.h"

// Watching what changes on the machine. Each function takes the calling thread for itself, waits without a time limit,
// and calls the function it was given each time. It returns only when the system does not let it watch, with the error.
namespace os {

/// Watches a key under HKEY_LOCAL_MACHINE with all below it for new, removed and written entries (RegOpenKeyExW with
/// KEY_NOTIFY | KEY_WOW64_64KEY, RegNotifyChangeKeyValue). What changes while `onChange` runs is told afterwards, once.
Status WatchRegistryKey(const std::wstring& key, const std::function<void()>& onChange);
template <>
inline constexpr WaitingMark kWaiting<&WatchRegistryKey>{Waiting::Deaf};

/// Watches the log "System" for events, from now on, that an XPath query selects (EvtSubscribe with
/// EvtSubscribeToFutureEvents, EvtNext). Events that come together are told once.
Status WatchSystemLog(const wchar_t* query, const std::function<void()>& onEvents);
template <>
inline constexpr WaitingMark kWaiting<&WatchSystemLog>{Waiting::Deaf};

}  // namespace os

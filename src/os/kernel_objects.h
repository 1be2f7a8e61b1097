#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

/// A kernel object the process holds open (HANDLE).
enum class KernelObject : std::uint64_t { None = 0 };
void CloseKernelObject(KernelObject object) noexcept;
using Mutex = Owned<KernelObject, CloseKernelObject>;
using Event = Owned<KernelObject, CloseKernelObject>;

struct NamedMutex {
  Mutex mutex = {};             // empty when it could be neither created nor opened
  bool alreadyExisted = false;  // somebody else holds one of this name (ERROR_ALREADY_EXISTS)
  std::uint32_t error = 0;      // why there is no mutex
};

/// The mutex is somebody else's, who lets nobody open it (ERROR_ACCESS_DENIED).
inline constexpr std::uint32_t kMutexDenied = 5;

/// Creates or opens a named mutex without owning it (CreateMutexW, then GetLastError). Any thread.
[[nodiscard]] NamedMutex CreateNamedMutex(const wchar_t* name);

/// Opens an existing named event for changing it (OpenEventW, EVENT_MODIFY_STATE); empty when there is none.
[[nodiscard]] Event OpenNamedEvent(const wchar_t* name);

/// Creates an event without a name that stays signalled once it is (CreateEventW, manual reset, not signalled).
[[nodiscard]] Event NewEvent();

/// Waits until an event is signalled (WaitForSingleObject), without a time limit unless one is given, in milliseconds.
/// False when the time is up, and when there is no event.
inline constexpr std::uint32_t kWithoutLimit = 0xFFFFFFFF;  // INFINITE
bool AwaitEvent(const Event& event, std::uint32_t limitMs = kWithoutLimit);
template <>
inline constexpr WaitingMark kWaiting<&AwaitEvent>{Waiting::Deaf};

/// Signals an event, or takes the signal back (SetEvent, ResetEvent). Any thread.
void SignalEvent(const Event& event);
void ResetEvent(const Event& event);

}  // namespace os

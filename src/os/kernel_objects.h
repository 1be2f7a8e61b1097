#pragma once

#include <cstdint>

#include "os/types.h"

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

/// Waits without a time limit until an event is signalled (WaitForSingleObject). False when there is no event.
bool AwaitEvent(const Event& event);

/// Signals an event, or takes the signal back (SetEvent, ResetEvent). Any thread.
void SignalEvent(const Event& event);
void ResetEvent(const Event& event);

}  // namespace os

#include "os/kernel_objects.h"

#include "os/win32/win32_support.h"

namespace os {

void CloseKernelObject(KernelObject object) noexcept {
  CloseHandle(win32::ToNative<HANDLE>(object));
}

NamedMutex CreateNamedMutex(const wchar_t* name) {
  const HANDLE mutex = CreateMutexW(nullptr, FALSE, name);
  const DWORD error = GetLastError();
  if (mutex == nullptr) return {.error = error};
  return {.mutex = Mutex(win32::ToDoor<KernelObject>(mutex)), .alreadyExisted = error == ERROR_ALREADY_EXISTS};
}

Event OpenNamedEvent(const wchar_t* name) {
  return Event(win32::ToDoor<KernelObject>(OpenEventW(EVENT_MODIFY_STATE, FALSE, name)));
}

Event NewEvent() {
  return Event(win32::ToDoor<KernelObject>(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
}

bool AwaitEvent(const Event& event, std::uint32_t limitMs) {
  return WaitForSingleObject(win32::ToNative<HANDLE>(event.get()), limitMs) == WAIT_OBJECT_0;
}

void SignalEvent(const Event& event) {
  SetEvent(win32::ToNative<HANDLE>(event.get()));
}

void ResetEvent(const Event& event) {
  ::ResetEvent(win32::ToNative<HANDLE>(event.get()));
}

}  // namespace os

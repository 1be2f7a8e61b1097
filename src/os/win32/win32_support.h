#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "os/types.h"

/// What every file behind the door needs to turn the system's types into the door's and back.
namespace os::win32 {

/// The door's handle for one of the system's; an invalid file handle becomes None like a null one.
template <class Strong>
[[nodiscard]] Strong ToDoor(const void* native) {
  const auto bits = reinterpret_cast<std::uintptr_t>(native);
  return bits == static_cast<std::uintptr_t>(-1) ? Strong::None : Strong{bits};
}

/// The system's handle, of the pointer type `Native`, for one of the door's.
template <class Native, class Strong>
[[nodiscard]] Native ToNative(Strong handle) {
  return reinterpret_cast<Native>(static_cast<std::uintptr_t>(handle));
}

[[nodiscard]] inline HWND NativeOf(WindowHandle window) {
  return ToNative<HWND>(window);
}

/// The calling thread's last error; must be the first call after the one that failed.
[[nodiscard]] inline Error LastError() {
  return Error{GetLastError()};
}

/// The outcome of a call that tells success by a non-zero result and why it failed by the last error.
[[nodiscard]] inline Status DoneOrLastError(BOOL succeeded) {
  if (succeeded == FALSE) return LastError();
  return Done{};
}

/// The outcome of a call that returns 0 or the error code itself.
[[nodiscard]] inline Status DoneOrCode(ULONG code) {
  if (code != ERROR_SUCCESS) return Error{code};
  return Done{};
}

/// The outcome of a COM call.
[[nodiscard]] inline Status DoneOrHresult(HRESULT result) {
  if (FAILED(result)) return Error{static_cast<std::uint32_t>(result)};
  return Done{};
}

/// The outcome of a call that gives a handle which nobody owns here, or the last error.
template <class Strong>
[[nodiscard]] Result<Strong> ToDoorOrLastError(const void* native) {
  const auto handle = ToDoor<Strong>(native);
  if (handle == Strong::None) return LastError();
  return handle;
}

/// The outcome of a call that opens something: what `Owner` then owns, or the last error.
template <class Owner>
[[nodiscard]] Result<Owner> OwnOrLastError(const void* native) {
  using Strong = decltype(Owner().get());
  const auto handle = ToDoor<Strong>(native);
  if (handle == Strong::None) return LastError();
  return Owner(handle);
}

/// The text in a fixed buffer, up to its NUL; all of the buffer when the system left no room for one.
[[nodiscard]] inline std::wstring TextOf(std::span<const wchar_t> buffer) {
  return {buffer.begin(), std::find(buffer.begin(), buffer.end(), L'\0')};
}

/// Closes a handle that does not leave the function it was opened in.
struct HandleCloser {
  void operator()(void* handle) const noexcept { CloseHandle(handle); }
};
using LocalHandle = std::unique_ptr<void, HandleCloser>;

/// Closes a registry key, likewise.
struct KeyCloser {
  void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using RegistryKey = std::unique_ptr<HKEY__, KeyCloser>;

/// A function of a system library that not every version of Windows has; null where it is missing. `Function` is its
/// type, such as BOOL WINAPI(PBOOL). Only libraries that every process holds anyway, so that none is searched for.
template <class Function>
[[nodiscard]] Function* FindSystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace os::win32

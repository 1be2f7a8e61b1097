#include "os/power.h"

#include <windows.h>

#include <powrprof.h>

#include <cstring>
#include <memory>
#include <tuple>

#include "os/win32/power_settings.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct LocalMemoryCloser {
  void operator()(void* memory) const noexcept { LocalFree(memory); }
};

using ReadValueIndex = DWORD WINAPI(HKEY root, const GUID* scheme, const GUID* subgroup, const GUID* setting,
                                    DWORD* value);

/// Looked up, because a program under Wine finds the library without them.
ReadValueIndex* ValueReader(bool onMains) {
  return win32::FindSystemFunction<ReadValueIndex>(L"powrprof.dll",
                                                   onMains ? "PowerReadACValueIndex" : "PowerReadDCValueIndex");
}

}  // namespace

Result<PowerStatus> QueryPowerStatus() {
  SYSTEM_POWER_STATUS status{};
  if (GetSystemPowerStatus(&status) == FALSE) return win32::LastError();
  // By position: what the fourth field is called depends on the age of the headers.
  const auto& [onMains, charge, percent, batterySaver, secondsLeft, secondsFull] = status;
  return PowerStatus{onMains, batterySaver};
}

Result<PowerScheme> ActivePowerScheme() {
  GUID* scheme = nullptr;
  const DWORD code = PowerGetActiveScheme(nullptr, &scheme);
  if (code != ERROR_SUCCESS) return Error{code};
  const std::unique_ptr<void, LocalMemoryCloser> memory(scheme);
  static_assert(sizeof(GUID) == std::tuple_size_v<PowerScheme>);
  PowerScheme bytes{};
  std::memcpy(bytes.data(), scheme, bytes.size());
  return bytes;
}

Result<std::uint32_t> LidCloseActionOf(const PowerScheme& scheme, bool onMains) {
  auto* const read = ValueReader(onMains);
  if (read == nullptr) return Error{ERROR_CALL_NOT_IMPLEMENTED};
  GUID guid{};
  std::memcpy(&guid, scheme.data(), scheme.size());
  DWORD action = 0;
  const DWORD code =
      read(nullptr, &guid, &win32::SystemButtonSubgroup(), &win32::GuidOf(PowerSetting::LidCloseAction), &action);
  if (code != ERROR_SUCCESS) return Error{code};
  return action;
}

}  // namespace os

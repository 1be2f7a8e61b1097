#include "os/first_sign_in.h"

#include "os/win32/win32_support.h"

namespace os {
namespace {

constexpr auto kLibrary = L"kernel32.dll";

using OobeComplete = BOOL WINAPI(BOOL* complete);
using OobeCallback = void CALLBACK(void* context);
using RegisterOobeWait = BOOL WINAPI(OobeCallback* callback, void* context, void** wait);
using UnregisterOobeWait = BOOL WINAPI(void* wait);

void CALLBACK OnOobeCompleted(void* context) noexcept {
  reinterpret_cast<void (*)()>(context)();
}

}  // namespace

Result<bool> IsSetupComplete() {
  const auto oobeComplete = win32::FindSystemFunction<OobeComplete>(kLibrary, "OOBEComplete");
  if (oobeComplete == nullptr) return true;
  BOOL complete = FALSE;
  if (oobeComplete(&complete) == FALSE) return win32::LastError();
  return complete != FALSE;
}

Result<SetupWait> WaitForSetup(void (*onCompleted)()) {
  const auto registerWait = win32::FindSystemFunction<RegisterOobeWait>(kLibrary, "RegisterWaitUntilOOBECompleted");
  void* wait = nullptr;
  if (registerWait == nullptr) return Error{ERROR_PROC_NOT_FOUND};
  if (registerWait(OnOobeCompleted, reinterpret_cast<void*>(onCompleted), &wait) == FALSE) return win32::LastError();
  return win32::ToDoor<SetupWait>(wait);
}

void EndWaitForSetup(SetupWait wait) {
  const auto unregisterWait =
      win32::FindSystemFunction<UnregisterOobeWait>(kLibrary, "UnregisterWaitUntilOOBECompleted");
  if (wait == SetupWait::None || unregisterWait == nullptr) return;
  unregisterWait(win32::ToNative<void*>(wait));
}

}  // namespace os

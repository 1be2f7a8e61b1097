// Packaged applications, started through the activation manager.
#include <windows.h>

#include <shellapi.h>
#include <shobjidl.h>

#include "os/processes.h"
#include "os/win32/win32_support.h"

namespace os {

Status JoinCom() {
  return win32::DoneOrHresult(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
}

void ReleaseActivation(ActivationHandle manager) noexcept {
  win32::ToNative<IApplicationActivationManager*>(manager)->Release();
}

Result<ActivationManager> CreateActivationManager() {
  void* manager = nullptr;
  const HRESULT result = CoCreateInstance(CLSID_ApplicationActivationManager, nullptr, CLSCTX_LOCAL_SERVER,
                                          IID_IApplicationActivationManager, &manager);
  if (FAILED(result)) return Error{static_cast<std::uint32_t>(result)};
  return ActivationManager(win32::ToDoor<ActivationHandle>(manager));
}

Status ActivateApplication(const ActivationManager& manager, const std::wstring& appUserModelId,
                           const std::wstring& argument) {
  DWORD processId = 0;
  return win32::DoneOrHresult(win32::ToNative<IApplicationActivationManager*>(manager.get())
                                  ->ActivateApplication(appUserModelId.c_str(),
                                                        argument.empty() ? nullptr : argument.c_str(), AO_NONE,
                                                        &processId));
}

std::int64_t ShellOpenNothing() {
  return reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", nullptr, nullptr, nullptr, SW_SHOW));
}

}  // namespace os

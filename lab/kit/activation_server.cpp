#include "kit/activation_server.h"

#include <windows.h>

#include <shobjidl.h>

#include <future>
#include <thread>

namespace lab {
namespace {

constexpr CLSID kActivationManager{0x45BA127D, 0x10A8, 0x46EA, {0x8A, 0xB7, 0x56, 0xEA, 0x90, 0x78, 0x94, 0x3C}};

std::function<void(const std::wstring&, const std::wstring&)> onActivation;

/// Lives as long as the process: its reference counts mean nothing.
class Manager : public IApplicationActivationManager {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, __uuidof(IApplicationActivationManager));
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE ActivateApplication(LPCWSTR application, LPCWSTR argument, ACTIVATEOPTIONS,
                                                DWORD* processId) override {
    onActivation(application, argument == nullptr ? L"" : argument);
    if (processId != nullptr) *processId = GetCurrentProcessId();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE ActivateForFile(LPCWSTR, IShellItemArray*, LPCWSTR, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ActivateForProtocol(LPCWSTR, IShellItemArray*, DWORD*) override { return E_NOTIMPL; }
};

class Factory : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    static Manager manager;
    return manager.QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

bool ServeActivations(std::function<void(const std::wstring&, const std::wstring&)> onActivate) {
  onActivation = std::move(onActivate);
  std::promise<bool> registered;
  auto outcome = registered.get_future();
  std::thread([registered = std::move(registered)]() mutable {
    static Factory factory;
    DWORD registration = 0;
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    registered.set_value(SUCCEEDED(
        CoRegisterClassObject(kActivationManager, &factory, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &registration)));
    Sleep(INFINITE);  // the class is served as long as its thread keeps COM open
  }).detach();
  return outcome.get();
}

}  // namespace lab

#include "os/process_stops.h"

#include <windows.h>

#include <oleauto.h>
#include <wbemidl.h>

#include "os/win32/com_pointer.h"
#include "os/win32/event_sink.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct TextFreer {
  void operator()(wchar_t* text) const noexcept { SysFreeString(text); }
};
using ComText = std::unique_ptr<wchar_t, TextFreer>;

ComText ToComText(const wchar_t* text) {
  return ComText(SysAllocString(text));
}

Error ToError(HRESULT result) {
  return Error{static_cast<std::uint32_t>(result)};
}

template <class Interface>
HRESULT Create(REFCLSID id, DWORD where, win32::ComPointer<Interface>& created) {
  void* object = nullptr;
  const HRESULT result = CoCreateInstance(id, nullptr, where, __uuidof(Interface), &object);
  if (SUCCEEDED(result)) created.reset(static_cast<Interface*>(object));
  return result;
}

/// What a running query needs; the services are let go first, the sink last.
struct Subscription {
  explicit Subscription(const ProcessStopEvents& events) : sink(new win32::EventSink(events)) {}

  win32::ComPointer<win32::EventSink> sink;
  win32::ComPointer<IWbemObjectSink> stub;
  win32::ComPointer<IUnsecuredApartment> apartment;
  win32::ComPointer<IWbemServices> services;  // a reference of its own
};

/// The events come from a process with other rights, which may call this one only through a stub in an apartment that
/// takes calls from anybody.
HRESULT MakeStub(Subscription& subscription) {
  const HRESULT created = Create(CLSID_UnsecuredApartment, CLSCTX_LOCAL_SERVER, subscription.apartment);
  if (FAILED(created)) return created;
  IUnknown* unknown = nullptr;
  const HRESULT made = subscription.apartment->CreateObjectStub(subscription.sink.get(), &unknown);
  if (FAILED(made)) return made;
  const win32::ComPointer<IUnknown> owned(unknown);
  void* stub = nullptr;
  const HRESULT asked = unknown->QueryInterface(IID_IWbemObjectSink, &stub);
  if (SUCCEEDED(asked)) subscription.stub.reset(static_cast<IWbemObjectSink*>(stub));
  return asked;
}

}  // namespace

Status JoinComMultithreaded() {
  return win32::DoneOrHresult(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
}

void LeaveCom() {
  CoUninitialize();
}

Status InitializeComSecurity() {
  constexpr LONG kServicesOfTheSystems = -1;  // COM chooses the authentication services
  return win32::DoneOrHresult(CoInitializeSecurity(nullptr, kServicesOfTheSystems, nullptr, nullptr,
                                                   RPC_C_AUTHN_LEVEL_DEFAULT, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                                   EOAC_NONE, nullptr));
}

void ReleaseLocator(LocatorHandle locator) noexcept {
  win32::ToNative<IWbemLocator*>(locator)->Release();
}

Result<ManagementLocator> CreateManagementLocator() {
  win32::ComPointer<IWbemLocator> locator;
  if (const HRESULT result = Create(CLSID_WbemLocator, CLSCTX_INPROC_SERVER, locator); FAILED(result)) {
    return ToError(result);
  }
  return ManagementLocator(win32::ToDoor<LocatorHandle>(locator.release()));
}

void ReleaseManagement(ManagementHandle services) noexcept {
  win32::ToNative<IWbemServices*>(services)->Release();
}

Result<Management> ConnectToManagement(const ManagementLocator& locator, const wchar_t* nameSpace) {
  IWbemServices* services = nullptr;
  const HRESULT result =
      win32::ToNative<IWbemLocator*>(locator.get())
          ->ConnectServer(ToComText(nameSpace).get(), nullptr, nullptr, nullptr, 0, nullptr, nullptr, &services);
  if (FAILED(result)) return ToError(result);
  return Management(win32::ToDoor<ManagementHandle>(services));
}

Status SetManagementBlanket(const Management& services) {
  return win32::DoneOrHresult(CoSetProxyBlanket(win32::ToNative<IWbemServices*>(services.get()), RPC_C_AUTHN_WINNT,
                                                RPC_C_AUTHZ_NONE, nullptr, RPC_C_AUTHN_LEVEL_CALL,
                                                RPC_C_IMP_LEVEL_IMPERSONATE, nullptr, EOAC_NONE));
}

void CancelSubscription(SubscriptionHandle subscription) noexcept {
  const std::unique_ptr<Subscription> owned(win32::ToNative<Subscription*>(subscription));
  owned->services->CancelAsyncCall(owned->stub.get());
}

Result<ProcessStopSubscription> SubscribeToProcessStops(const Management& services, const wchar_t* query,
                                                        const ProcessStopEvents& events) {
  auto subscription = std::make_unique<Subscription>(events);
  subscription->services.reset(win32::ToNative<IWbemServices*>(services.get()));
  subscription->services->AddRef();
  if (const HRESULT result = MakeStub(*subscription); FAILED(result)) return ToError(result);
  const HRESULT result = subscription->services->ExecNotificationQueryAsync(
      ToComText(L"WQL").get(), ToComText(query).get(), WBEM_FLAG_SEND_STATUS, nullptr, subscription->stub.get());
  if (FAILED(result)) return ToError(result);
  // CancelSubscription deletes it. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  return ProcessStopSubscription(win32::ToDoor<SubscriptionHandle>(subscription.release()));
}

}  // namespace os

// Processes that end. Wine takes the query for them and never tells of one, and lacks the apartment that the controller
// wraps its event sink in: here the apartment is there, and tells the sink when the UI's process ends.
#include <windows.h>

#include <wbemidl.h>

#include <cwchar>
#include <thread>

#include "kit/com_object.h"
#include "kit/system_events.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

constexpr CLSID kUnsecuredApartment{0x49BD2028, 0x1523, 0x11D1, {0xAD, 0x79, 0x00, 0xC0, 0x4F, 0xD8, 0xFD, 0xFF}};

HRESULT WINAPI PropertyOfEvent(void* /*event*/, LPCWSTR name, LONG /*flags*/, VARIANT* value, CIMTYPE* /*type*/,
                               LONG* /*flavor*/) {
  constexpr LONG kAnyId = 4711;
  if (std::wcscmp(name, L"ProcessId") == 0) return value->vt = VT_I4, value->lVal = kAnyId, S_OK;
  if (std::wcscmp(name, L"ProcessName") != 0) return static_cast<HRESULT>(WBEM_E_NOT_FOUND);
  value->vt = VT_BSTR;
  value->bstrVal = SysAllocString(L"NorvTessaview.exe");
  return S_OK;
}

/// For the life of the process. The sink takes as long as it likes: the next event waits for it, as on Windows.
void TellOfEnds(IWbemObjectSink* sink) {
  static ComObject event = ComObject().With(4, PropertyOfEvent);
  auto* object = static_cast<IWbemClassObject*>(event.Interface());
  for (;;) {
    Await(SystemEvent::UiEnded);
    sink->Indicate(1, &object);
  }
}

/// The stub is the sink itself.
HRESULT WINAPI CreateStub(void* /*apartment*/, IUnknown* sink, IUnknown** stub) {
  void* events = nullptr;
  if (FAILED(sink->QueryInterface(__uuidof(IWbemObjectSink), &events))) return E_NOINTERFACE;
  std::thread(TellOfEnds, static_cast<IWbemObjectSink*>(events)).detach();
  sink->AddRef();
  *stub = sink;
  Report(L"patch process stops are watched");
  return S_OK;
}

HRESULT WINAPI CreateObject(REFCLSID id, LPUNKNOWN outer, DWORD where, REFIID interfaceId, LPVOID* object) {
  static ComObject apartment = ComObject().With(3, CreateStub);
  if (!IsEqualCLSID(id, kUnsecuredApartment)) return CoCreateInstance(id, outer, where, interfaceId, object);
  *object = apartment.Interface();
  return S_OK;
}

}  // namespace

std::array<Redirection, 1> ProcessStopCalls() {
  return {{{"CoCreateInstance", reinterpret_cast<void*>(CreateObject)}}};
}

}  // namespace lab::patch

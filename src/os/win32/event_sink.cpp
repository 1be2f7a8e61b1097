#include "os/win32/event_sink.h"

#include <oleauto.h>

#include <cwchar>

namespace os::win32 {
namespace {

/// A property of an event; cleared with it.
class Property {
 public:
  Property(IWbemClassObject& event, const wchar_t* name) {
    VariantInit(&value_);
    event.Get(name, 0, &value_, nullptr, nullptr);
  }
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  ~Property() { VariantClear(&value_); }

  /// Empty when it is no text.
  [[nodiscard]] const wchar_t* Text() const {
    return value_.vt == VT_BSTR && value_.bstrVal != nullptr ? value_.bstrVal : L"";
  }

 private:
  VARIANT value_{};
};

/// In the system's 8-bit code page; what that has no letter for becomes its replacement character.
std::string Narrow(const wchar_t* text) {
  const auto length = static_cast<int>(std::wcslen(text));
  if (length == 0) return {};
  const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, text, length, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

}  // namespace

HRESULT EventSink::QueryInterface(REFIID id, void** object) noexcept {
  if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IWbemObjectSink)) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = static_cast<IWbemObjectSink*>(this);
  AddRef();
  return S_OK;
}

ULONG EventSink::AddRef() noexcept {
  return ++references_;
}

ULONG EventSink::Release() noexcept {
  const ULONG left = --references_;
  if (left == 0) {
    done_ = true;
    delete this;
  }
  return left;
}

HRESULT EventSink::Indicate(LONG count, IWbemClassObject** objects) noexcept {
  if (count == 0 || objects == nullptr) return static_cast<HRESULT>(WBEM_E_INVALID_PARAMETER);
  for (LONG i = 0; i < count; ++i) {
    if (objects[i] == nullptr) continue;
    const Property name(*objects[i], L"ProcessName");
    const Property id(*objects[i], L"ProcessId");  // the query's other property; nobody needs it yet
    events_.stopped(Narrow(name.Text()));
  }
  return WBEM_S_NO_ERROR;
}

HRESULT EventSink::SetStatus(LONG flags, HRESULT result, BSTR /*text*/, IWbemClassObject* /*object*/) noexcept {
  if (flags == WBEM_STATUS_COMPLETE) events_.completed(static_cast<std::uint32_t>(result));
  if (flags == WBEM_STATUS_PROGRESS) events_.progressed();
  return WBEM_S_NO_ERROR;
}

}  // namespace os::win32

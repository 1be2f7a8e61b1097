#pragma once

#include <windows.h>

#include <wbemidl.h>

#include <atomic>

#include "os/process_stops.h"

namespace os::win32 {

/// Hears the events of a query for processes that end, and hands each on before it returns, on the thread of the
/// system's that brings it. It is made with one reference, and frees itself with the last.
class EventSink final : public IWbemObjectSink {
 public:
  explicit EventSink(const ProcessStopEvents& events) : events_(events) {}
  EventSink(const EventSink&) = delete;
  EventSink& operator=(const EventSink&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;

  // Not one exception leaves these: COM could not carry it. One for want of memory ends the process.
  HRESULT STDMETHODCALLTYPE Indicate(LONG count, IWbemClassObject** objects) noexcept override;
  HRESULT STDMETHODCALLTYPE SetStatus(LONG flags, HRESULT result, BSTR text,
                                      IWbemClassObject* object) noexcept override;

 private:
  ~EventSink() = default;  // by its last reference alone

  std::atomic<ULONG> references_ = 1;
  std::atomic<bool> done_ = false;  // nobody may call it any more
  const ProcessStopEvents events_;
};

}  // namespace os::win32

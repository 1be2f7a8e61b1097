// Event tracing. Wine registers providers and drops every event, and no session can enable one: here a session listens
// from the start, at the most detailed level, and each event's text goes to the test.
#include <windows.h>

#include <evntprov.h>

#include <cstring>
#include <string>

#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

constexpr UCHAR kVerbose = 5;
constexpr std::size_t kEventNameOffset = 3;  // after the 16-bit size and the empty tag of the event's metadata

ULONG WINAPI RegisterAndEnable(LPCGUID id, PENABLECALLBACK onEnable, PVOID context, PREGHANDLE handle) {
  const ULONG status = EventRegister(id, onEnable, context, handle);
  if (status == ERROR_SUCCESS && onEnable != nullptr) onEnable(id, 1, kVerbose, ~0ULL, 0, nullptr, context);
  return status;
}

/// The three descriptors are the provider's traits, the event's metadata and the text with its NUL.
ULONG WINAPI ReportEvent(REGHANDLE, PCEVENT_DESCRIPTOR, LPCGUID, LPCGUID, ULONG count, PEVENT_DATA_DESCRIPTOR data) {
  if (count != 3 || data[1].Size <= kEventNameOffset || data[2].Size < sizeof(wchar_t)) return ERROR_INVALID_PARAMETER;
  const auto* eventName = reinterpret_cast<const char*>(static_cast<ULONG_PTR>(data[1].Ptr)) + kEventNameOffset;
  const auto* text = reinterpret_cast<const wchar_t*>(static_cast<ULONG_PTR>(data[2].Ptr));
  const bool isUsage = std::strcmp(eventName, "TessaviewUsage") == 0;
  Report((isUsage ? L"usage " : L"trace ") + std::wstring(text, data[2].Size / sizeof(wchar_t) - 1));
  return ERROR_SUCCESS;
}

}  // namespace

std::array<Redirection, 2> TraceCalls() {
  return {{{"EventRegister", reinterpret_cast<void*>(RegisterAndEnable)},
           {"EventWriteTransfer", reinterpret_cast<void*>(ReportEvent)}}};
}

}  // namespace lab::patch

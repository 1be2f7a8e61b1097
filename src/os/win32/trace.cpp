#include "os/trace.h"

#include <windows.h>

#include <evntprov.h>
#include <evntrace.h>

#include <array>
#include <bit>
#include <cstring>

#include "os/win32/win32_support.h"

namespace os {
namespace {

// Not in the headers of the toolchain.
constexpr auto kProviderTraits = std::bit_cast<EVENT_INFO_CLASS>(2);  // EventProviderSetTraits
constexpr std::uint32_t kTypeProviderTraits = 2;                      // EVENT_DATA_DESCRIPTOR_TYPE_PROVIDER_METADATA
constexpr std::uint32_t kTypeEventMetadata = 1;                       // EVENT_DATA_DESCRIPTOR_TYPE_EVENT_METADATA
constexpr std::uint32_t kTypePlainData = 0;

GUID ToGuid(const Guid& id) {
  static_assert(sizeof(GUID) == sizeof(Guid));
  GUID native{};
  std::memcpy(&native, &id, sizeof native);
  return native;
}

/// The third kind of control, a request to log state anew, changes nothing about who listens.
void NTAPI OnProviderControl(const GUID* /*source*/, ULONG control, UCHAR level, ULONGLONG /*anyKeyword*/,
                             ULONGLONG /*allKeyword*/, EVENT_FILTER_DESCRIPTOR* /*filter*/, void* context) noexcept {
  const auto onEnable = reinterpret_cast<TraceEnableCallback>(context);
  if (control == EVENT_CONTROL_CODE_ENABLE_PROVIDER) onEnable(true, level);
  if (control == EVENT_CONTROL_CODE_DISABLE_PROVIDER) onEnable(false, level);
}

EVENT_DATA_DESCRIPTOR Describe(BytesView data, std::uint32_t type) {
  EVENT_DATA_DESCRIPTOR descriptor{};
  descriptor.Ptr = reinterpret_cast<std::uintptr_t>(data.data());
  descriptor.Size = static_cast<ULONG>(data.size());
  descriptor.Reserved = type;  // its low byte is the type in newer headers
  return descriptor;
}

}  // namespace

Result<TraceProvider> RegisterTraceProvider(const Guid& id, TraceEnableCallback onEnable) {
  const GUID native = ToGuid(id);
  REGHANDLE provider = 0;
  const ULONG code = EventRegister(&native, OnProviderControl, reinterpret_cast<void*>(onEnable), &provider);
  if (code != ERROR_SUCCESS) return Error{code};
  return TraceProvider{provider};
}

Status SetTraceProviderTraits(TraceProvider provider, BytesView traits) {
  Bytes copy(traits.begin(), traits.end());  // the call takes it as writable
  return win32::DoneOrCode(EventSetInformation(static_cast<REGHANDLE>(provider), kProviderTraits, copy.data(),
                                               static_cast<ULONG>(copy.size())));
}

std::uint32_t WriteTraceEvent(TraceProvider provider, const TraceEventDescriptor& descriptor, BytesView providerTraits,
                              BytesView eventMetadata, BytesView data) {
  const EVENT_DESCRIPTOR event{descriptor.id,     descriptor.version, descriptor.channel, descriptor.level,
                               descriptor.opcode, descriptor.task,    descriptor.keyword};
  std::array<EVENT_DATA_DESCRIPTOR, 3> parts{Describe(providerTraits, kTypeProviderTraits),
                                             Describe(eventMetadata, kTypeEventMetadata),
                                             Describe(data, kTypePlainData)};
  return EventWriteTransfer(static_cast<REGHANDLE>(provider), &event, nullptr, nullptr,
                            static_cast<ULONG>(parts.size()), parts.data());
}

void WriteDebugText(const wchar_t* text) {
  OutputDebugStringW(text);
}

}  // namespace os

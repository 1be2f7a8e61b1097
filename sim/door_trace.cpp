#include "os/trace.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {

using sim::Machine;

Result<TraceProvider> RegisterTraceProvider(const Guid& id, TraceEnableCallback onEnable) {
  if (const auto call = sim::Enter<&RegisterTraceProvider>(); call.failed()) return Error{call.error()};
  return Machine().trace.Register(id, onEnable);
}

Status SetTraceProviderTraits(TraceProvider provider, BytesView traits) {
  if (const auto call = sim::Enter<&SetTraceProviderTraits>(); call.failed()) return Error{call.error()};
  if (!Machine().trace.SetTraits(provider, traits)) return Error{sim::kInvalidHandle};
  return Done{};
}

std::uint32_t WriteTraceEvent(TraceProvider provider, const TraceEventDescriptor& descriptor, BytesView providerTraits,
                              BytesView eventMetadata, BytesView data) {
  if (const auto call = sim::Enter<&WriteTraceEvent>(); call.failed()) return call.error();
  return Machine().trace.Write(provider, descriptor, providerTraits, eventMetadata, data);
}

void WriteDebugText(const wchar_t* text) {
  const auto call = sim::Enter<&WriteDebugText>();
  if (!call.failed()) Machine().trace.WriteDebugText(text);
}

}  // namespace os

#pragma once

#include <array>
#include <cstdint>

#include "os/types.h"

namespace os {

/// A GUID in its published field layout.
struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0, data3 = 0;
  std::array<std::uint8_t, 8> data4{};

  friend bool operator==(const Guid&, const Guid&) = default;
};

/// A registered event provider (REGHANDLE).
enum class TraceProvider : std::uint64_t { None = 0 };

/// The descriptor of one event (EVENT_DESCRIPTOR).
struct TraceEventDescriptor {
  std::uint16_t id = 0;
  std::uint8_t version = 0, channel = 0, level = 0, opcode = 0;
  std::uint16_t task = 0;
  std::uint64_t keyword = 0;
};

/// What is registered with a provider: called by the system, on a thread of its choosing, whenever a trace session
/// enables the provider (with the highest level wanted) or disables it.
using TraceEnableCallback = void (*)(bool enabled, std::uint8_t level);

/// Registers a provider (EventRegister). Any thread.
[[nodiscard]] Result<TraceProvider> RegisterTraceProvider(const Guid& id, TraceEnableCallback onEnable);

/// Tells consumers the provider's traits, its name above all (EventSetInformation, EventProviderSetTraits).
Status SetTraceProviderTraits(TraceProvider provider, BytesView traits);

/// Writes one self-describing event: three data descriptors, of type provider metadata (2), event metadata (1) and
/// plain data (0), in this order (EventWriteTransfer). Returns the status of the write. Any thread; microseconds.
std::uint32_t WriteTraceEvent(TraceProvider provider, const TraceEventDescriptor& descriptor, BytesView providerTraits,
                              BytesView eventMetadata, BytesView data);

/// Writes to an attached debugger (OutputDebugStringW). Any thread.
void WriteDebugText(const wchar_t* text);

}  // namespace os

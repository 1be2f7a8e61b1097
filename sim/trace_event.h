#pragma once

#include <optional>
#include <string>

#include "os/types.h"

namespace sim {

/// What a trace consumer makes of one self-describing event with one text field.
struct TraceEvent {
  std::string provider, name, field;
  std::wstring text;
};

/// The provider's name in its traits; empty when they do not hold to the form.
[[nodiscard]] std::optional<std::string> DecodeProviderTraits(os::BytesView traits);

/// Reads an event strictly, byte for byte; empty when it does not hold to the form.
[[nodiscard]] std::optional<TraceEvent> DecodeTraceEvent(os::BytesView providerTraits, os::BytesView eventMetadata,
                                                         os::BytesView data);

}  // namespace sim

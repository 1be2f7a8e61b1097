#pragma once

#include <string_view>

#include "os/types.h"

namespace tessaview {

/// The traits of the provider "TessaviewServiceLogger": 16-bit size of the whole, then the name, NUL-terminated.
const os::Bytes& ProviderTraits();

/// The self-describing metadata of an event with one field of NUL-terminated UTF-16 text: 16-bit size of the whole, an
/// empty tag byte, then event name, field name (both NUL-terminated) and the field's type, as TraceLoggingProvider.h
/// lays them out.
os::Bytes TextEventMetadata(std::string_view event, std::string_view field);

/// A text as event data: UTF-16, little-endian, terminating NUL included.
os::Bytes EventText(std::wstring_view text);

}  // namespace tessaview

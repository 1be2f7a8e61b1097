#pragma once

#include <cstdint>

#include "os/types.h"

namespace tessaview {

/// Takes in a copy-data record: decodes it, finds its command and carries it out. `kind` is a RecordKind; others are
/// ignored. Records of a wrong size are dropped with a log line, unknown commands silently. Any process of the session
/// may have sent it. Main thread.
void OnCopyData(std::uint64_t kind, os::BytesView record);

}  // namespace tessaview

#pragma once

#include <cstdint>
#include <vector>

#include "os/types.h"
#include "uilink/commands/command.h"

namespace tessaview {

/// Takes in a copy-data record: decodes it, finds its command and carries it out. `kind` is a RecordKind; others are
/// ignored. Records of a wrong size are dropped with a log line, unknown commands silently. Any process of the session
/// may have sent it. Main thread.
void OnCopyData(std::uint64_t kind, os::BytesView record);

/// All commands that come in text messages, in matching order: the first that matches is carried out.
[[nodiscard]] const std::vector<UiCommand>& UiCommands();

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/types.h"

namespace tessaview {

/// Logs that something could not be done and with what error of the system: "[Failure] <what>, error = 5 (0x5) ".
/// `what` is a plain sentence. Any thread.
void LogError(const wchar_t* what, std::uint32_t error);

/// The same for the outcome of a call, if it failed.
template <class T>
void LogFailure(const wchar_t* what, const os::Result<T>& outcome) {
  if (!outcome) LogError(what, outcome.error());
}

}  // namespace tessaview

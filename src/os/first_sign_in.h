#pragma once

#include <cstdint>

#include "os/types.h"

namespace os {

/// True once Windows' out-of-box setup is over, so that a user has signed in or can (OOBEComplete). A system without
/// that function never has setup pending: true. Any thread.
[[nodiscard]] Result<bool> IsSetupComplete();

/// A wait for the end of setup (the handle of RegisterWaitUntilOOBECompleted).
enum class SetupWait : std::uint64_t { None = 0 };

/// Asks for one call of `onCompleted`, on a thread of the system's, when setup completes later
/// (RegisterWaitUntilOOBECompleted). Fails when it is complete already, and where the system has no such function
/// (ERROR_PROC_NOT_FOUND, 127).
[[nodiscard]] Result<SetupWait> WaitForSetup(void (*onCompleted)());
void EndWaitForSetup(SetupWait wait);  // UnregisterWaitUntilOOBECompleted; None is ignored

}  // namespace os

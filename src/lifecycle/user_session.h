#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "os/processes.h"

namespace tessaview {

/// Starts a program as the user of the session on the interactive desktop; an empty `commandLine` passes none. Failures
/// are logged. Any thread; milliseconds.
[[nodiscard]] std::optional<os::Process> StartInUserSession(const std::wstring& program,
                                                            const std::wstring& commandLine = {});

/// Starts a program like StartInUserSession without a command line, logs nothing, and waits up to 5 seconds for it. Its
/// exit code, 0 when it did not end in time; nothing when it could not be started.
[[nodiscard]] std::optional<std::uint32_t> RunInUserSessionQuietly(const std::wstring& program);

/// Runs a program as that user and waits up to 5 seconds for it. False when it could not be started. On true,
/// `exitCode` is the program's, or left as it was when the program did not end in time.
bool CreateProcessWithUserLevel(const std::wstring& program, std::uint32_t& exitCode);

}  // namespace tessaview

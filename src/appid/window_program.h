#pragma once

#include <string>

#include "os/types.h"

namespace tessaview {

/// A path without its folder and its last extension.
[[nodiscard]] std::wstring ProgramName(const std::wstring& path);

/// The name of the program that a window belongs to, for the usage record; for the frame of a packaged application that
/// of the application. Empty when it cannot be told. Characters beyond eight bits become '?'. Any thread.
[[nodiscard]] std::wstring ApplicationLabel(os::WindowHandle window);

}  // namespace tessaview

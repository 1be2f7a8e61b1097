#pragma once

#include <optional>
#include <string>

#include "os/types.h"

namespace tessaview {

/// The path of the executable of the application that a window shows, at most 259 characters: for the frame of a
/// packaged application that of the window inside it, or belonging to it, for any other window its own. Nothing when it
/// cannot be told. Any thread.
[[nodiscard]] std::optional<std::wstring> ExecutableOfWindow(os::WindowHandle window);

/// A path without its folder and its last extension.
[[nodiscard]] std::wstring ProgramName(const std::wstring& path);

/// The name of the program that a window shows, for the usage record; empty when it cannot be told. Characters beyond
/// eight bits become '?'. Any thread.
[[nodiscard]] std::wstring ApplicationLabel(os::WindowHandle window);

}  // namespace tessaview

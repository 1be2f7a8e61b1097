#pragma once

#include <string>

namespace tessaview {

/// One argument of a command line, quoted so that it stays one argument whatever it holds, by the rules that
/// CommandLineToArgvW reads it back with.
[[nodiscard]] std::wstring QuotedArgument(const std::wstring& argument);

/// Starts both helper tools, which set the C panel's wallpaper and pin the UI to its launcher, as the active user.
/// They lie beside this program; a missing one is a log line. Does not wait for them.
void StartHelperTools();

}  // namespace tessaview

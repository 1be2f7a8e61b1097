#pragma once

#include <string>

namespace tessaview {

/// One argument of a command line, quoted so that it stays one argument whatever it holds, by the rules that
/// CommandLineToArgvW reads it back with.
[[nodiscard]] std::wstring QuotedArgument(const std::wstring& argument);

/// Starts both helper tools, which set the C panel's wallpaper and pin the UI to its launcher, as the user.
/// They lie beside this program; a missing one is a log line. Does not wait for them.
void StartHelperTools();

/// Has the wallpaper tool prepare the C panel, and once that has ended, 5 seconds later at most, set a picture by an
/// option of its own ("-UI" for the C panel, "-UIB" for the B panel), as the user. Pictures are set in the order
/// in which they came, on a thread of their own. Any thread; returns at once.
void SetWallpaper(const wchar_t* option, const std::wstring& picture);

}  // namespace tessaview

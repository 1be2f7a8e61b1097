#pragma once

#include <string>

namespace lab {

/// Fills the B panel with a window in the foreground, as a signed-in user's desktop does, that shows the lines
/// as they come. Lives as long as this process, on a thread of its own. Called again, it brings the window back to the
/// foreground. True when it is there.
bool OpenDesktop();

/// Adds one line to it; the oldest ones scroll away. Any thread.
void ShowOnDesktop(const std::wstring& line);

}  // namespace lab

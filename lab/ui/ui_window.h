#pragma once

#include <string>

namespace lab {

/// Shows the window of this class on the C panel and talks with the controller until the window is closed. The lab
/// hears each text with `name` before it, empty for the main window. The process's exit code.
int RunUiWindow(const wchar_t* windowClass, const std::wstring& name);

}  // namespace lab

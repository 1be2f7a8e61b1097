#pragma once

#include <cstdint>
#include <string>

#include "os/types.h"

namespace os {

/// The first top-level window of a class and, unless `title` is null, of a title (FindWindowW). None when there is
/// none. Any thread.
[[nodiscard]] WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title = nullptr);

/// The window the user works with; None while there is none (GetForegroundWindow). Any thread.
[[nodiscard]] WindowHandle ForegroundWindow();

/// A window's class name, at most 259 characters; empty when the window is gone (GetClassNameW). Any thread.
[[nodiscard]] std::wstring WindowClassName(WindowHandle window);

/// The id of the process that owns a window; 0 when the window is gone (GetWindowThreadProcessId). Any thread.
[[nodiscard]] std::uint32_t WindowProcessId(WindowHandle window);

}  // namespace os

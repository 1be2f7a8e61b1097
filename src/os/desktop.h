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

/// The top window of the chain of parents that a window is in; the window itself when it has none, None when it is gone
/// (GetAncestor, GA_ROOT). Any thread.
[[nodiscard]] WindowHandle RootWindow(WindowHandle window);

/// A window's place on the desktop in pixels; all zero when it is gone (GetWindowRect). Any thread.
[[nodiscard]] Rect WindowRect(WindowHandle window);

/// A window's style bits (GetWindowLongW, GWL_STYLE); 0 when it is gone. Any thread.
[[nodiscard]] std::uint32_t WindowStyle(WindowHandle window);
inline constexpr std::uint32_t kWsCaption = 0x00C00000;  // WS_CAPTION, two bits

/// The window behind all others, which covers the primary display, and the shell's own one (GetDesktopWindow,
/// GetShellWindow). Any thread.
[[nodiscard]] WindowHandle DesktopWindow();
[[nodiscard]] WindowHandle ShellWindow();

/// Width and height of the primary display in pixels (GetSystemMetrics, SM_CXSCREEN and SM_CYSCREEN). Any thread.
[[nodiscard]] Size PrimaryScreenSize();

/// The id of the process that owns a window; 0 when the window is gone (GetWindowThreadProcessId). Any thread.
[[nodiscard]] std::uint32_t WindowProcessId(WindowHandle window);

}  // namespace os

#pragma once

#include <string>
#include <string_view>

#include "os/types.h"

namespace tessaview {

/// The frame around a packaged application, and the application's own window inside it. A suspended application's own
/// window is a top-level one.
inline constexpr const wchar_t* kFrameClass = L"ApplicationFrameWindow";
inline constexpr const wchar_t* kCoreWindowClass = L"Windows.UI.Core.CoreWindow";

/// The shell's taskbars: that of the primary display, and those of the others.
inline constexpr const wchar_t* kTaskbarClass = L"Shell_TrayWnd";
inline constexpr const wchar_t* kSecondaryTaskbarClass = L"Shell_SecondaryTrayWnd";

// Who is asked of what: the target of a move may be neither of the UI nor of the shell; HOME and NAVWINUP also leave
// out the edge; so does the no-activate mode, with frames.

/// Whether a window, whose class name is given, is one of the UI's.
[[nodiscard]] bool IsUiWindow(os::WindowHandle window, std::wstring_view className);

/// Whether a window is part of the shell, not of an application: desktop, taskbars, and what pops up from them.
[[nodiscard]] bool IsShellWindow(os::WindowHandle window, std::wstring_view className);

/// Whether a class is that of the surface which the shell shows at the screen's edges.
[[nodiscard]] bool IsEdgeClass(std::wstring_view className);

}  // namespace tessaview

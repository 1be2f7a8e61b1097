#pragma once

#include <string_view>

#include "os/types.h"

namespace tessaview {

/// The frame around a packaged application, and the application's own window. That lies inside the frame; while the
/// application is suspended, it is a top-level window.
inline constexpr const wchar_t* kFrameClass = L"ApplicationFrameWindow";
inline constexpr const wchar_t* kCoreWindowClass = L"Windows.UI.Core.CoreWindow";

/// The shell's taskbar on the primary display.
inline constexpr const wchar_t* kTaskbarClass = L"Shell_TrayWnd";

// Which windows are left out where:
//
//                      the UI's   the shell's   the edge   companions   frames
//   target of a move      x            x                       x
//   HOME                  x            x            x
//   NAVWINUP              x            x            x          x
//   no-activate mode      x            x            x          x           x

/// Whether a window is one of the UI's. Its class name is handed in, here and below.
[[nodiscard]] bool IsUiWindow(os::WindowHandle window, std::wstring_view className);

/// Whether a window belongs to the shell: desktop, taskbars, and what pops up from them.
[[nodiscard]] bool IsShellWindow(os::WindowHandle window, std::wstring_view className);

/// Whether a class is that of the surface which the shell shows at the screen's edges.
[[nodiscard]] bool IsEdgeClass(std::wstring_view className);

}  // namespace tessaview

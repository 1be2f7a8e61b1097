#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "os/types.h"

// Finding windows and reading what they are. Nothing here waits for the program that a window belongs to.
namespace os {

// ---- Finding ----

/// The first top-level window of a class and a title; null for either means any (FindWindowW). None when there is none.
/// Any thread.
[[nodiscard]] WindowHandle FindTopWindow(const wchar_t* className, const wchar_t* title = nullptr);

/// The first child window of a class (FindWindowExW); None when there is none. Any thread.
[[nodiscard]] WindowHandle FindChildWindow(WindowHandle parent, const wchar_t* className);

/// All top-level windows, the topmost first (EnumWindows). Any thread; some hundred on a used desktop.
[[nodiscard]] std::vector<WindowHandle> TopWindows();

/// The window under a point of the desktop; a child window where there is one, None where there is nothing
/// (WindowFromPoint). Any thread.
[[nodiscard]] WindowHandle WindowAt(Point point);

/// The window the user works with; None while there is none (GetForegroundWindow). Any thread.
[[nodiscard]] WindowHandle ForegroundWindow();

/// The top window of the chain of parents that a window is in; the window itself when it has none, None when it is gone
/// (GetAncestor, GA_ROOT). Any thread.
[[nodiscard]] WindowHandle RootWindow(WindowHandle window);

/// The same along parents and owners: a dialog leads to the program's main window (GetAncestor, GA_ROOTOWNER).
[[nodiscard]] WindowHandle RootOwner(WindowHandle window);

/// The window behind all others, which covers the primary display, and the shell's own one (GetDesktopWindow,
/// GetShellWindow). Any thread.
[[nodiscard]] WindowHandle DesktopWindow();
[[nodiscard]] WindowHandle ShellWindow();

// ---- Reading ----

/// Whether the window is still there (IsWindow). Any thread.
[[nodiscard]] bool IsWindow(WindowHandle window);

/// A window's class name, at most 259 characters; empty when the window is gone (GetClassNameW). Any thread.
[[nodiscard]] std::wstring WindowClassName(WindowHandle window);

/// A window's title as the system keeps it, at most 259 characters; empty when the window is gone (GetWindowTextW).
/// Any thread.
[[nodiscard]] std::wstring WindowTitle(WindowHandle window);

/// A window's place on the desktop in pixels; all zero when it is gone (GetWindowRect). Any thread.
[[nodiscard]] Rect WindowRect(WindowHandle window);

/// A window's style bits (GetWindowLongW, GWL_STYLE); 0 when it is gone. Any thread.
[[nodiscard]] std::uint32_t WindowStyle(WindowHandle window);
inline constexpr std::uint32_t kWsMaximizeBox = 0x0001'0000, kWsMinimizeBox = 0x0002'0000,
                               kWsCaption = 0x00C0'0000,  // two bits
    kWsMaximize = 0x0100'0000, kWsVisible = 0x1000'0000, kWsMinimize = 0x2000'0000, kWsPopup = 0x8000'0000;

/// A window's extended style bits (GetWindowLongW, GWL_EXSTYLE); 0 when it is gone. Any thread.
[[nodiscard]] std::uint32_t WindowExtendedStyle(WindowHandle window);
inline constexpr std::uint32_t kWsExNoActivate = 0x0800'0000;

/// Whether a window and all its parents are visible (IsWindowVisible), and whether it is minimised (IsIconic); false
/// when it is gone. Any thread.
[[nodiscard]] bool IsWindowVisible(WindowHandle window);
[[nodiscard]] bool IsWindowMinimized(WindowHandle window);

/// The monitor that a window lies on for the most part, or else the nearest (MonitorFromWindow,
/// MONITOR_DEFAULTTONEAREST). Any thread.
[[nodiscard]] MonitorHandle MonitorOf(WindowHandle window);

/// The id of the process that owns a window; 0 when the window is gone (GetWindowThreadProcessId). Any thread.
[[nodiscard]] std::uint32_t WindowProcessId(WindowHandle window);

/// The name of the desktop that has keyboard and mouse: "Default" is the user's, "Winlogon" the secure one
/// (OpenInputDesktop, GetUserObjectInformationW with UOI_NAME). Empty when it may not be opened. Any thread.
[[nodiscard]] std::wstring InputDesktopName();

/// Width and height of the primary display in pixels (GetSystemMetrics, SM_CXSCREEN and SM_CYSCREEN). Any thread.
[[nodiscard]] Size PrimaryScreenSize();

}  // namespace os

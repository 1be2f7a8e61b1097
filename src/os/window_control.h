#pragma once

#include <cstdint>

#include "os/types.h"
#include "os/waiting.h"

// Changing windows of other programs. The system asks the window's own thread for each change and waits for it, unless
// it is said that nobody waits: a program that hangs holds the caller up for as long as it hangs.
namespace os {

/// How a window is shown (the SW_ values).
enum class ShowCommand : std::uint32_t {
  Hide = 0,
  ShowNormal = 1,
  ShowMinimized = 2,
  ShowMaximized = 3,
  Show = 5,
  Minimize = 6,
  Restore = 9,
};

/// Shows, hides, minimises or maximises a window (ShowWindow). Done when it was visible before, else the last error,
/// which may be 0: what the system returns does not tell a failure from a window that was hidden. Any thread; waits for
/// the window's thread.
Status ShowWindow(WindowHandle window, ShowCommand command);
template <>
inline constexpr WaitingMark kWaiting<&ShowWindow>{Waiting::Serving};

/// Asks a window's thread to show, hide, minimise or maximise it, and does not wait (ShowWindowAsync). Any thread.
void AskToShow(WindowHandle window, ShowCommand command);

/// Moves and sizes a window and has it painted again (MoveWindow, repaint TRUE). Any thread; waits for the window's
/// thread.
Status MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height);
template <>
inline constexpr WaitingMark kWaiting<&MoveWindow>{Waiting::Serving};

/// Where a window belongs while it is neither minimised nor maximised, and how it is shown (WINDOWPLACEMENT).
/// Rectangles are relative to the primary display's work area, for windows that are no tool windows.
struct WindowPlacement {
  std::uint32_t flags = 0;
  ShowCommand showCmd = ShowCommand::ShowNormal;
  Point minimizedPosition, maximizedPosition;
  Rect rcNormalPosition;
};

/// A window's placement (GetWindowPlacement). Any thread; waits for nobody.
[[nodiscard]] Result<WindowPlacement> GetPlacement(WindowHandle window);

/// Puts a window where a placement says (SetWindowPlacement). Any thread; waits for the window's thread.
Status SetPlacement(WindowHandle window, const WindowPlacement& placement);
template <>
inline constexpr WaitingMark kWaiting<&SetPlacement>{Waiting::Serving};

/// Puts a window above all that are not so, or back among the others (SetWindowPos, HWND_TOPMOST or HWND_NOTOPMOST,
/// SWP_NOSIZE | SWP_NOMOVE). Any thread; waits for the window's thread.
Status SetTopmost(WindowHandle window, bool topmost);
template <>
inline constexpr WaitingMark kWaiting<&SetTopmost>{Waiting::Serving};

/// Replaces a window's extended style bits (SetWindowLongW, GWL_EXSTYLE). Any thread; waits for the window's thread.
void SetWindowExtendedStyle(WindowHandle window, std::uint32_t style);
template <>
inline constexpr WaitingMark kWaiting<&SetWindowExtendedStyle>{Waiting::Serving, false};

/// Whether a window's thread answers a message that asks for nothing, within `timeoutMs` milliseconds; not at all for
/// one that the system holds for hung (SendMessageTimeoutW, WM_NULL, SMTO_ABORTIFHUNG). False also when the window is
/// gone. Any thread; blocks for that long at most.
[[nodiscard]] bool AnswersWithin(WindowHandle window, std::uint32_t timeoutMs);
template <>
inline constexpr WaitingMark kWaiting<&AnswersWithin>{Waiting::Serving};

/// Asks a window to close, and waits as long as AnswersWithin does (SendMessageTimeoutW, WM_CLOSE, SMTO_ABORTIFHUNG).
/// False when it gave no answer in time; the window may close later all the same. Any thread.
bool AskToClose(WindowHandle window, std::uint32_t timeoutMs);
template <>
inline constexpr WaitingMark kWaiting<&AskToClose>{Waiting::Serving};

}  // namespace os

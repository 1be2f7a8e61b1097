#pragma once

#include <cstdint>

#include "display/panel_info.h"
#include "os/types.h"

// Moving a window to a rectangle that the UI chose.
namespace tessaview {

/// The UI's corners as a place and a size.
[[nodiscard]] PanelRect PlaceOf(const os::Rect& corners);

/// What failed of a move to a rectangle; bits, 0 when nothing did.
inline constexpr std::uint32_t kShowFailed = 1, kFirstMoveFailed = 2, kSecondMoveFailed = 4;

/// Restores a window and puts it at a rectangle of the desktop, less the height of the taskbar when both lie in the B
/// panel; maximises it there if asked. Returns the bits above, all of them for a window that hangs. Any thread; blocks
/// for 20 seconds at most, and for 5 more when the program hangs.
std::uint32_t MoveWindowByRect(os::WindowHandle window, const PanelRect& rect, bool maximizeAfter);

/// Puts a window of a task group at the rectangle that the UI chose; if it then sticks out of the B panel at the right
/// or at the bottom, it is moved back inside. Any thread; blocks for twice as long.
void PlaceInBPanel(os::WindowHandle window, const os::Rect& requested);

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/types.h"

// Moving a window to a panel, as a whole. A window with a maximise box is placed and maximised there; it is minimised
// in between, so that the shell takes it for one of the new panel. Any other window is made as large as the panel.
namespace tessaview {

/// How long a window rests minimised on its way.
enum class Pause : std::uint32_t { Short = 200, Long = 1000 };  // ms

inline constexpr std::int32_t kMoveDone = 0;    // or nothing to do
inline constexpr std::int32_t kMoveFailed = 2;  // the window could not be moved, or hangs

/// Moves a window to the B panel; nothing is done while that is absent. Its restored size follows the change of scale.
/// `keepMinimized`: a browser is not restored before it is placed. Any thread; blocks for 200 ms, for up to 10 s when
/// the window's program is busy.
std::int32_t MoveWindowtoBPanel(os::WindowHandle window, bool keepMinimized);

/// Moves a window to the C panel, whose size becomes its restored size too; nothing is done while the panel is absent.
/// Any thread; blocks for the pause, for up to 10 s when the window's program is busy.
std::int32_t MoveWindowtoCPanel(os::WindowHandle window, Pause pause);

}  // namespace tessaview

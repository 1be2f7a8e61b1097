#pragma once

namespace tessaview {

/// Whether the C panel is owed a move by one pixel after a Win+P. Who is told so makes the move; it is told once. Any
/// thread.
[[nodiscard]] bool ClaimWin_P_WindowMoveFlag();

/// Watches the keyboard for Win+P on a thread of its own, which hands each press and each release of P with the left
/// Windows key down to the main thread, so that the keyboard is never held up. There a C panel is brought back that is
/// off although the user wants it on.
void StartWinPWatch();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// Whether a one-pixel move of the C panel is owed, now that the display change after Win+P has come; whoever asks is
/// to make it. Any thread.
[[nodiscard]] bool ClaimWin_P_WindowMoveFlag();

/// Watches the keyboard for Win+P on a thread of its own. Both press and release of P with the left Windows key down
/// bring a C panel back that is off although the user wants it on, one after the other on a further thread: the
/// keyboard is never held up by it.
void StartWinPWatch();

}  // namespace tessaview

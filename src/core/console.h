#pragma once

namespace tessaview {

/// Whether this process's session is the one at the machine's own screen and keyboard. While it is not, firmware and
/// displays are another user's, and nothing is written to them. Counts as true when the system cannot tell the own
/// session. Any thread; microseconds.
[[nodiscard]] bool IsAtConsole();

/// Whether IsAtConsole has answered no since this was asked last, so that something was left undone. Any thread.
[[nodiscard]] bool ClaimAbsence();

}  // namespace tessaview

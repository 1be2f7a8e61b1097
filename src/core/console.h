#pragma once

namespace tessaview {

/// Whether this process's session is the one at the machine's own screen and keyboard. While it is not, firmware and
/// displays are another user's, and nothing is written to them. Counts as true when the system cannot tell the own
/// session. Any thread; microseconds.
[[nodiscard]] bool IsAtConsole();

}  // namespace tessaview

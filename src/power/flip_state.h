#pragma once

namespace tessaview {

/// The flip state was read at least once, so this machine has one. Main thread.
[[nodiscard]] bool gFlipInfoValid();

/// Follows a change of the flip state. Folded over: the panel is not shown. As a notebook: it is as the user chose.
/// Main thread; can take seconds.
void OnFlipStateChanged();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// The flip state was read at least once, so this machine has one. Main thread.
[[nodiscard]] bool gFlipInfoValid();

/// Follows a change of the flip state: folded over, the panel is not shown; as a notebook, it is as the user chose.
void OnFlipStateChanged();

}  // namespace tessaview

#pragma once

#include <string_view>

namespace tessaview {

/// Whether a window's title is that of one of the maker's companion applications, which belong on the C panel.
[[nodiscard]] bool IsCompanionTitle(std::wstring_view title);

/// Moves the visible companion windows to the C panel. Blocks for the length of the moves.
void MoveCompanionsToCPanel();

}  // namespace tessaview

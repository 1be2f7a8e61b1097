#pragma once

#include <cstdint>

namespace tessaview {

/// Whether a display's picture is turned by 90 or 270 degrees (DEVMODEW, dmDisplayOrientation), so that its width is
/// the height of the display as it is built.
[[nodiscard]] constexpr bool IsTurnedByQuarter(std::uint32_t orientation) {
  return orientation == 1 || orientation == 3;
}

/// True when the C panel was found and stands the right way up, its long side horizontal: it is mounted portrait, so
/// that is a display orientation of 270 degrees. Logs what it sees, in the words of somebody sitting before it.
bool IsCPanelLandscape();

}  // namespace tessaview

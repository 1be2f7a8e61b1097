#pragma once

#include <cstdint>
#include <string>

namespace tessaview {

enum class Turn { Keep, To270 };

/// What shall become of a display. Width and height are those of the display as it is built: they are exchanged when it
/// stands turned by a quarter afterwards. 0 x 0 keeps its size, exchanged when this change turns it by a quarter. A
/// position of (0, 0) does not move it.
struct MonitorChange {
  std::int32_t width = 0, height = 0, x = 0, y = 0;
  Turn turn = Turn::Keep;
};

/// Moves, sizes and turns one display in a single change, kept for the future. True when the system took it. Any
/// thread; can take seconds.
bool SetMonitorEx(const std::wstring& gdiName, const MonitorChange& change);

}  // namespace tessaview

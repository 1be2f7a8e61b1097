#pragma once

#include <cstdint>

#include "os/types.h"

// The overlay that the UI draws below the point where a drag began: where it appears, and where its areas are.
namespace tessaview {

/// What the overlay looks like just now.
enum class OverlayState : std::uint8_t { FirstShow, Normal, Hover };

/// Where an area of the overlay lies, in desktop pixels; its edges are outside.
struct MoverRect {
  std::int32_t left = 0, right = 0, top = 0, bottom = 0;

  [[nodiscard]] bool Contains(os::Point point) const {
    return left < point.x && point.x < right && top < point.y && point.y < bottom;
  }
  friend bool operator==(const MoverRect&, const MoverRect&) = default;
};

/// The panel that a drag began on. From the B panel a window is sent down, at once or the slower way ("pin"); from the
/// C panel it is sent up.
enum class MoverPanel : std::uint8_t { B, C };

/// The areas that a window can be dropped on.
enum class MoverArea : std::uint8_t { None, Down, Pin, WinUp };

/// An overlay: its top left corner and its areas. An area that it has not got contains nothing.
struct MoverOverlay {
  os::Point position;
  MoverRect down, pin, winUp;

  /// The area at a point; where areas overlap, the first one wins.
  [[nodiscard]] MoverArea AreaAt(os::Point point) const;
};

/// Which overlay the UI draws.
struct OverlayKind {
  MoverPanel panel = MoverPanel::B;
  bool isNewerUI = false;  // the UI told its version
  bool isLarge = false;    // for a panel of many pixels
};

/// The overlay around the point where the button was pressed.
[[nodiscard]] MoverOverlay LayOutMover(const OverlayKind& kind, OverlayState state, os::Point press);

}  // namespace tessaview

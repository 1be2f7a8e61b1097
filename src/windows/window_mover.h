#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "os/types.h"
#include "uilink/ui_sender.h"
#include "windows/mover_layout.h"

namespace tessaview {

// clang-format off
/// Where a drag stands.
///
///     Idle -> Armed -> Moving -> Shown <-> HoverDown, HoverPin   (on the B panel)
///                                      <-> HoverWinUp            (on the C panel)
///
/// Every state ends in Idle: when the button is released, and when the drag ends.
// clang-format on
enum class MoverState : std::uint8_t {
  Idle,
  Armed,       // a window that may be thrown is being dragged
  Moving,      // and is moved, not sized: all four of its edges have changed
  Shown,       // the UI shows the overlay
  HoverDown,   // the pointer is in the overlay's area "down",
  HoverPin,    // in its area "pin",
  HoverWinUp,  // or in its area "up"
};

/// The last press of the left button.
struct Press {
  os::Point gPressPoint;
  std::uint64_t gPressTime = 0;    // ms, os::NowMs
  os::Rect gPressWindowRect = {};  // of the root window under it
};

/// The release of the left button.
struct Release {
  os::Point cursor;
  std::uint64_t timeMs = 0;          // os::NowMs
  std::uint64_t sinceCommandMs = 0;  // since the last UP or DOWN
};

/// A window that was dropped on an area of the overlay.
struct ThrownWindow {
  os::WindowHandle window = os::WindowHandle::None;
  MoverState area = MoverState::Idle;  // one of the Hover states
};

/// What a step of the mover leads to: texts for the UI, in order, and a window to be moved.
struct MoverOutcome {
  std::vector<PostedText> texts;
  std::optional<ThrownWindow> thrown;
};

/// Lets the user throw a window to the other panel: follows the drag of a window and tells the UI when to show its
/// overlay and what is hovered. It only compares numbers; the caller feeds it, and does what comes out. One step at a
/// time.
class WindowMover {
 public:
  [[nodiscard]] bool isMoverOnBPanel() const { return IsArmed() && panel_ == MoverPanel::B; }
  [[nodiscard]] bool isMoverOnCPanel() const { return IsArmed() && panel_ == MoverPanel::C; }
  [[nodiscard]] bool IsArmed() const { return state_ != MoverState::Idle; }
  [[nodiscard]] os::WindowHandle WindowMoverHandle() const { return window_; }

  /// The left button was pressed.
  void Pressed(const Press& press) { press_ = press; }

  /// The window whose drag began, whether it can be thrown or not.
  void Choose(os::WindowHandle window) { window_ = window; }

  /// The chosen window lies on a panel and can be thrown. The overlay of one of Microsoft's applications only says that
  /// it cannot be (`isMSHanlde`).
  void Arm(MoverPanel panel, bool isMSHanlde);

  /// The pointer moved while the mover was armed. `window` is the dragged window's rectangle, all zero when it is gone.
  [[nodiscard]] MoverOutcome PointerMoved(os::Point cursor, const os::Rect& window);

  /// The left button was released.
  [[nodiscard]] MoverOutcome Released(const Release& release);

  /// The drag ended, however it did.
  [[nodiscard]] MoverOutcome DragEnded();

  /// Nothing can be thrown any more; an overlay that is shown is taken down.
  [[nodiscard]] MoverOutcome Disarm();

 private:
  [[nodiscard]] bool WindowMoverUIEnable() const { return state_ >= MoverState::Shown; }
  [[nodiscard]] bool IsHovered() const { return state_ > MoverState::Shown; }
  [[nodiscard]] bool IsTap(const Release& release) const;
  [[nodiscard]] bool IsFarFromPress(os::Point cursor) const;
  [[nodiscard]] MoverState AreaAt(os::Point cursor) const;
  [[nodiscard]] bool IsLarge() const { return panel_ == MoverPanel::B ? isLargeMoverUI_ : isLargeMoverUIOnC_; }

  void NoteMoving(const os::Rect& window);
  void Show(MoverOutcome& outcome);
  void ShowOnBPanel();
  void ShowOnCPanel();
  void Hover(MoverState area, MoverOutcome& outcome);
  void LayOut(OverlayState overlay);
  [[nodiscard]] PostedText Overlay(const wchar_t* text, bool isPin = false) const;
  [[nodiscard]] PostedText TakeDown() const;
  [[nodiscard]] PostedText Enter() const;

  MoverState state_ = MoverState::Idle;
  MoverPanel panel_ = MoverPanel::B;
  os::WindowHandle window_ = os::WindowHandle::None;
  bool isMSHanlde_ = false;
  bool isLargeMoverUI_ = false, isLargeMoverUIOnC_ = false;  // as last shown on each panel
  MoverOverlay overlay_;
  Press press_;
};

}  // namespace tessaview

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "display/panel_info.h"
#include "os/types.h"
#include "uilink/channel/ui_sender.h"
#include "windows/mover/mover_layout.h"

namespace tessaview {

// clang-format off
/// Where a drag stands.
///
///     Idle -> Armed -> Moving -> Shown
///
/// While the overlay is shown, the pointer may hover over one of its areas. Every state goes back to Idle when the
/// button is released, and when the drag ends.
// clang-format on
enum class MoverState : std::uint8_t {
  Idle,
  Armed,   // a window that may be thrown is being dragged
  Moving,  // the window is moved, not sized: all four of its edges have changed
  Shown,   // the UI shows the overlay
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

/// A move of the pointer while a window is dragged, and what there is around it.
struct Dragged {
  os::Point cursor;
  os::Rect window;                 // the dragged window's rectangle, all zero when it is gone
  std::optional<PanelRect> panel;  // the panel that the drag began on, while it is there
  bool isNewerUI = false;          // the UI told its version
};

/// A window that was dropped on an area of the overlay.
struct ThrownWindow {
  os::WindowHandle window = os::WindowHandle::None;
  MoverArea area = MoverArea::None;
};

/// What a step of the mover leads to: texts for the UI, in order, and a window to be moved.
struct MoverOutcome {
  std::vector<PostedText> texts;
  std::optional<ThrownWindow> thrown;
};

/// Lets the user throw a window to the other panel: follows the drag of a window and tells the UI when to show its
/// overlay and what is hovered. It decides by what it is handed alone, and logs; the caller carries the outcome out.
/// One step at a time.
class WindowMover {
 public:
  [[nodiscard]] bool IsArmed() const { return state_ != MoverState::Idle; }
  [[nodiscard]] os::WindowHandle WindowMoverHandle() const { return window_; }

  /// The panel that the drag began on.
  [[nodiscard]] MoverPanel Panel() const { return panel_; }

  /// The left button was pressed.
  void Pressed(const Press& press) { press_ = press; }

  /// The window whose drag began, whether it can be thrown or not. A drag before it is over, also if nobody heard so.
  [[nodiscard]] MoverOutcome Choose(os::WindowHandle window);

  /// The chosen window lies on a panel and can be thrown. The overlay of one of Microsoft's applications only says that
  /// it cannot be (`isMSHanlde`).
  void Arm(MoverPanel panel, bool isMSHanlde);

  /// The pointer moved while the mover was armed.
  [[nodiscard]] MoverOutcome PointerMoved(const Dragged& dragged);

  /// The left button was released.
  [[nodiscard]] MoverOutcome Released(const Release& release);

  /// The drag ended, however it did.
  [[nodiscard]] MoverOutcome DragEnded();

  /// Nothing can be thrown any more; an overlay that is shown is taken down.
  [[nodiscard]] MoverOutcome Disarm();

 private:
  [[nodiscard]] bool WindowMoverUIEnable() const { return state_ == MoverState::Shown; }
  [[nodiscard]] bool IsTap(const Release& release) const;
  [[nodiscard]] bool IsFarFromPress(os::Point cursor) const;
  [[nodiscard]] bool IsLarge() const { return panel_ == MoverPanel::B ? isLargeMoverUI_ : isLargeMoverUIOnC_; }

  void NoteMoving(const os::Rect& window);
  void Show(const Dragged& dragged, MoverOutcome& outcome);
  void ShowOnBPanel(const std::optional<PanelRect>& panel);
  void ShowOnCPanel(const std::optional<PanelRect>& panel);
  void Hover(const Dragged& dragged, MoverOutcome& outcome);
  void LayOut(OverlayState overlay, bool isNewerUI);
  void GoIdle();
  [[nodiscard]] PostedText Overlay(const UiText& text) const;
  [[nodiscard]] PostedText TakeDown() const;
  [[nodiscard]] PostedText Enter() const;

  MoverState state_ = MoverState::Idle;
  MoverArea hovered_ = MoverArea::None;
  MoverPanel panel_ = MoverPanel::B;
  os::WindowHandle window_ = os::WindowHandle::None;
  bool isMSHanlde_ = false;
  bool isLargeMoverUI_ = false, isLargeMoverUIOnC_ = false;  // as last shown on each panel
  MoverOverlay overlay_;
  Press press_;
};

}  // namespace tessaview

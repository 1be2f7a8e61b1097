#include "windows/mover/window_mover.h"

#include <cstdlib>

#include "core/trace_log.h"

namespace tessaview {
namespace {

constexpr int kShowDistance = 51;             // pixels in x or y
constexpr int kTapDistance = 20;              // less than that in x and y
constexpr std::uint64_t kTapMs = 300;         // shorter than that
constexpr std::uint64_t kTapCommandMs = 500;  // so soon after UP or DOWN, a tap counts as a drag
constexpr int kTakeDownOffset = 36;           // pixels below the press

std::int64_t Distance(std::int32_t a, std::int32_t b) {
  return std::abs(std::int64_t{a} - b);
}

/// A window that is sized keeps at least one edge where it was.
bool IsMoved(const os::Rect& now, const os::Rect& then) {
  return now != os::Rect{} && now.left != then.left && now.top != then.top && now.right != then.right &&
         now.bottom != then.bottom;
}

void LogHover(MoverArea area) {
  switch (area) {
    case MoverArea::Down:
      return Log(L"[Window Mover] Hover on Window Mover UI : Down \n");
    case MoverArea::Pin:
      return Log(L"[Window Mover] Hover on Window Mover UI : Pin \n");
    case MoverArea::WinUp:
      return Log(L"[Window Mover On C Panel] Hover on Window Mover UI : WinUp \n");
    case MoverArea::None:
      return;
  }
}

void LogTrigger(MoverArea area) {
  switch (area) {
    case MoverArea::Down:
      return Log(L"[Window Mover] Trigger on Window Mover UI : Down \n");
    case MoverArea::Pin:
      return Log(L"[Window Mover] Trigger on Window Mover UI : Pin \n");
    case MoverArea::WinUp:
      return Log(L"[Window Mover] Trigger on Window Mover UI : WinUp \n");
    case MoverArea::None:
      return;
  }
}

void LogLeave(MoverPanel panel) {
  if (panel == MoverPanel::B) {
    Log(L"[Window Mover] Leave, Show Window Mover UI (Normal)  \n");
  } else {
    Log(L"[Window Mover On C Panel] Leave, Show Window Mover UI (Normal)  \n");
  }
}

const UiText& NormalText(MoverPanel panel) {
  return panel == MoverPanel::B ? texts::kMoverNormal : texts::kMoverWinUpNormal;
}

const UiText& HoverText(MoverPanel panel) {
  return panel == MoverPanel::B ? texts::kMoverHover : texts::kMoverWinUpHover;
}

}  // namespace

// ---- Events ----

MoverOutcome WindowMover::Choose(os::WindowHandle window) {
  auto outcome = Disarm();
  window_ = window;
  return outcome;
}

void WindowMover::Arm(MoverPanel panel, bool isMSHanlde) {
  panel_ = panel;
  isMSHanlde_ = isMSHanlde;
  state_ = MoverState::Armed;
  hovered_ = MoverArea::None;
}

MoverOutcome WindowMover::PointerMoved(const Dragged& dragged) {
  MoverOutcome outcome;
  if (state_ == MoverState::Armed) NoteMoving(dragged.window);
  if (state_ == MoverState::Moving && IsFarFromPress(dragged.cursor)) Show(dragged, outcome);
  if (WindowMoverUIEnable() && !isMSHanlde_) Hover(dragged, outcome);
  return outcome;
}

MoverOutcome WindowMover::Released(const Release& release) {
  if (IsTap(release)) {
    if (release.sinceCommandMs >= kTapCommandMs) return Disarm();
    Log(L"[WM_LBUTTONUP] TouchContinuetime_Event = %d \n", release.sinceCommandMs);
  }
  if (!IsArmed()) return {};

  Log(L"[Window Mover] Mouse Left Button Up \n");
  MoverOutcome outcome;
  if (WindowMoverUIEnable()) outcome.texts.push_back(TakeDown());
  if (hovered_ != MoverArea::None) {
    LogTrigger(hovered_);
    outcome.texts.push_back(Enter());
    outcome.thrown = {window_, hovered_};
  }
  GoIdle();
  return outcome;
}

MoverOutcome WindowMover::DragEnded() {
  GoIdle();
  isMSHanlde_ = false;
  return {.texts = {TakeDown()}, .thrown = {}};
}

/// The end of the drag takes the overlay down too, but it never comes when the window goes while it is dragged.
MoverOutcome WindowMover::Disarm() {
  MoverOutcome outcome;
  if (WindowMoverUIEnable()) outcome.texts.push_back(TakeDown());
  GoIdle();
  return outcome;
}

// ---- From state to state ----

void WindowMover::NoteMoving(const os::Rect& window) {
  if (!IsMoved(window, press_.gPressWindowRect)) return;
  if (panel_ == MoverPanel::B) {
    Log(L"[Window Mover] Window Status = Moving \n");
  } else {
    Log(L"[Window Mover On C Panel] Window Status = Moving \n");
  }
  state_ = MoverState::Moving;
}

void WindowMover::Show(const Dragged& dragged, MoverOutcome& outcome) {
  if (panel_ == MoverPanel::B) {
    ShowOnBPanel(dragged.panel);
  } else {
    ShowOnCPanel(dragged.panel);
  }
  LayOut(OverlayState::FirstShow, dragged.isNewerUI);
  outcome.texts.push_back(Overlay(isMSHanlde_ ? texts::kMoverRefused : NormalText(panel_)));
  state_ = MoverState::Shown;
}

void WindowMover::ShowOnBPanel(const std::optional<PanelRect>& panel) {
  const auto [x, y, width, height] = panel.value_or(PanelRect{});
  if (panel) {
    Log(L"[Window Mover] B Panel Resolution = ( X = %d, Y = %d, Width = %d, Height = %d) \n", x, y, width, height);
  }
  Log(L"[Window Mover] WindowMoverUIEnable = TRUE \n");
  isLargeMoverUI_ = width >= 3840 && height >= 2160;
  if (isLargeMoverUI_) Log(L"[Window Mover] Show 4K UI \n");
}

void WindowMover::ShowOnCPanel(const std::optional<PanelRect>& panel) {
  const auto [x, y, width, height] = panel.value_or(PanelRect{});
  if (panel) {
    Log(L"[Window Mover On C Panel] C Panel Resolution = ( X = %d, Y = %d, Width = %d, Height = %d) \n", x, y, width,
        height);
  }
  Log(L"[Window Mover On C Panel] WindowMoverUIEnable = TRUE \n");
  isLargeMoverUIOnC_ = width >= 2160 && height >= 1080;
  if (isLargeMoverUIOnC_) Log(L"[Window Mover On C Panel] Show 2160*1080 UI \n");
}

/// The overlay always goes back to normal first: the UI draws from there.
void WindowMover::Hover(const Dragged& dragged, MoverOutcome& outcome) {
  const auto area = overlay_.AreaAt(dragged.cursor);
  if (area == hovered_) return;
  if (area == MoverArea::None) {
    LogLeave(panel_);
  } else {
    LogHover(area);
  }
  hovered_ = MoverArea::None;
  LayOut(OverlayState::Normal, dragged.isNewerUI);
  outcome.texts.push_back(Overlay(NormalText(panel_)));
  hovered_ = area;
  if (area == MoverArea::None) return;
  LayOut(OverlayState::Hover, dragged.isNewerUI);
  outcome.texts.push_back(Overlay(HoverText(panel_)));
}

void WindowMover::GoIdle() {
  state_ = MoverState::Idle;
  hovered_ = MoverArea::None;
}

// ---- Numbers ----

bool WindowMover::IsTap(const Release& release) const {
  return release.timeMs - press_.gPressTime < kTapMs &&
         Distance(release.cursor.x, press_.gPressPoint.x) < kTapDistance &&
         Distance(release.cursor.y, press_.gPressPoint.y) < kTapDistance;
}

bool WindowMover::IsFarFromPress(os::Point cursor) const {
  return Distance(cursor.x, press_.gPressPoint.x) >= kShowDistance ||
         Distance(cursor.y, press_.gPressPoint.y) >= kShowDistance;
}

void WindowMover::LayOut(OverlayState overlay, bool isNewerUI) {
  overlay_ = LayOutMover({.panel = panel_, .isNewerUI = isNewerUI, .isLarge = IsLarge()}, overlay, press_.gPressPoint);
}

// ---- Texts for the UI: the window, the overlay's corner, and two flags ----

PostedText WindowMover::Overlay(const UiText& text) const {
  const auto at = overlay_.position;
  return {.text = text,
          .fields = {.handle = static_cast<std::uint64_t>(window_),
                     .rect = {.left = at.x, .top = at.y},
                     .point = {hovered_ == MoverArea::Pin ? 1 : 0, IsLarge() ? 1 : 0}}};
}

PostedText WindowMover::TakeDown() const {
  const auto at = press_.gPressPoint;
  return {.text = texts::kMoverPress,
          .fields = {.handle = static_cast<std::uint64_t>(window_),
                     .rect = {.left = at.x, .top = at.y + kTakeDownOffset},
                     .point = {0, isLargeMoverUI_ ? 1 : 0}}};
}

PostedText WindowMover::Enter() const {
  return {.text = texts::kMoverEnter,
          .fields = {.handle = static_cast<std::uint64_t>(window_),
                     .point = {hovered_ == MoverArea::Pin ? 1 : 0, IsLarge() ? 1 : 0}}};
}

}  // namespace tessaview

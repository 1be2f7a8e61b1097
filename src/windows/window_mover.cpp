#include "windows/window_mover.h"

#include <cstdlib>

#include "core/trace_log.h"
#include "display/panel_info.h"
#include "uilink/ui_state.h"

namespace tessaview {
namespace {

constexpr int kShowDistance = 51;             // pixels in x or y
constexpr int kTapDistance = 20;              // less than that in x and y
constexpr std::uint64_t kTapMs = 300;         // shorter than that
constexpr std::uint64_t kTapCommandMs = 500;  // a tap counts as a drag so soon after UP or DOWN
constexpr int kTakeDownOffset = 36;           // pixels below the press

std::int64_t Distance(std::int32_t a, std::int32_t b) {
  return std::abs(std::int64_t{a} - b);
}

/// A window that is sized keeps at least one edge where it was.
bool IsMoved(const os::Rect& now, const os::Rect& then) {
  return now != os::Rect{} && now.left != then.left && now.top != then.top && now.right != then.right &&
         now.bottom != then.bottom;
}

void LogHover(MoverState area) {
  switch (area) {
    case MoverState::HoverDown:
      return Log(L"[Window Mover] Hover on Window Mover UI : Down \n");
    case MoverState::HoverPin:
      return Log(L"[Window Mover] Hover on Window Mover UI : Pin \n");
    default:
      return Log(L"[Window Mover On C Panel] Hover on Window Mover UI : WinUp \n");
  }
}

void LogTrigger(MoverState area) {
  switch (area) {
    case MoverState::HoverDown:
      return Log(L"[Window Mover] Trigger on Window Mover UI : Down \n");
    case MoverState::HoverPin:
      return Log(L"[Window Mover] Trigger on Window Mover UI : Pin \n");
    default:
      return Log(L"[Window Mover] Trigger on Window Mover UI : WinUp \n");
  }
}

void LogLeave(MoverPanel panel) {
  if (panel == MoverPanel::B) {
    Log(L"[Window Mover] Leave, Show Window Mover UI (Normal)  \n");
  } else {
    Log(L"[Window Mover On C Panel] Leave, Show Window Mover UI (Normal)  \n");
  }
}

const wchar_t* NormalText(MoverPanel panel) {
  return panel == MoverPanel::B ? L"WSNORMAL" : L"WSWINUPNORMAL";
}

const wchar_t* HoverText(MoverPanel panel) {
  return panel == MoverPanel::B ? L"WSHOVER" : L"WSWINUPHOVER";
}

}  // namespace

// ---- Events ----

void WindowMover::Arm(MoverPanel panel, bool isMSHanlde) {
  panel_ = panel;
  isMSHanlde_ = isMSHanlde;
  state_ = MoverState::Armed;
}

MoverOutcome WindowMover::PointerMoved(os::Point cursor, const os::Rect& window) {
  MoverOutcome outcome;
  if (state_ == MoverState::Armed) NoteMoving(window);
  if (state_ == MoverState::Moving && IsFarFromPress(cursor)) Show(outcome);
  if (WindowMoverUIEnable() && !isMSHanlde_) Hover(AreaAt(cursor), outcome);
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
  if (IsHovered()) {
    LogTrigger(state_);
    outcome.texts.push_back(Enter());
    outcome.thrown = {window_, state_};
  }
  state_ = MoverState::Idle;
  return outcome;
}

MoverOutcome WindowMover::DragEnded() {
  state_ = MoverState::Idle;
  isMSHanlde_ = false;
  return {.texts = {TakeDown()}, .thrown = {}};
}

/// The end of the drag takes the overlay down too, but it may not come: the window may be gone by then.
MoverOutcome WindowMover::Disarm() {
  MoverOutcome outcome;
  if (WindowMoverUIEnable()) outcome.texts.push_back(TakeDown());
  state_ = MoverState::Idle;
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

void WindowMover::Show(MoverOutcome& outcome) {
  if (panel_ == MoverPanel::B) {
    ShowOnBPanel();
  } else {
    ShowOnCPanel();
  }
  LayOut(OverlayState::FirstShow);
  outcome.texts.push_back(Overlay(isMSHanlde_ ? L"MSWSNORMAL" : NormalText(panel_)));
  state_ = MoverState::Shown;
}

void WindowMover::ShowOnBPanel() {
  const auto panel = gPanelDisplayInfo.get().bPanel;
  const auto [x, y, width, height] = panel.SettingsView();
  if (panel.isFound) {
    Log(L"[Window Mover] B Panel Resolution = ( X = %d, Y = %d, Width = %d, Height = %d) \n", x, y, width, height);
  }
  Log(L"[Window Mover] WindowMoverUIEnable = TRUE \n");
  isLargeMoverUI_ = width >= 3840 && height >= 2160;
  if (isLargeMoverUI_) Log(L"[Window Mover] Show 4K UI \n");
}

void WindowMover::ShowOnCPanel() {
  const auto panel = gPanelDisplayInfo.get().cPanel;
  const auto [x, y, width, height] = panel.SettingsView();
  if (panel.isFound) {
    Log(L"[Window Mover On C Panel] C Panel Resolution = ( X = %d, Y = %d, Width = %d, Height = %d) \n", x, y, width,
        height);
  }
  Log(L"[Window Mover On C Panel] WindowMoverUIEnable = TRUE \n");
  isLargeMoverUIOnC_ = width >= 2160 && height >= 1080;
  if (isLargeMoverUIOnC_) Log(L"[Window Mover On C Panel] Show 2160*1080 UI \n");
}

/// The overlay always goes back to normal first: the UI draws from there.
void WindowMover::Hover(MoverState area, MoverOutcome& outcome) {
  if (area == state_) return;
  if (area == MoverState::Shown) {
    LogLeave(panel_);
  } else {
    LogHover(area);
  }
  LayOut(OverlayState::Normal);
  outcome.texts.push_back(Overlay(NormalText(panel_)));
  if (area != MoverState::Shown) {
    LayOut(OverlayState::Hover);
    outcome.texts.push_back(Overlay(HoverText(panel_), area == MoverState::HoverPin));
  }
  state_ = area;
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

/// The state that goes with the area under the pointer; where areas overlap, the first one wins.
MoverState WindowMover::AreaAt(os::Point cursor) const {
  if (overlay_.down.Contains(cursor)) return MoverState::HoverDown;
  if (overlay_.pin.Contains(cursor)) return MoverState::HoverPin;
  if (overlay_.winUp.Contains(cursor)) return MoverState::HoverWinUp;
  return MoverState::Shown;
}

void WindowMover::LayOut(OverlayState overlay) {
  overlay_ = LayOutMover({.panel = panel_, .isNewerUI = gUIVersionReported.get(), .isLarge = IsLarge()}, overlay,
                         press_.gPressPoint);
}

// ---- Texts for the UI: the window, the overlay's corner, and two flags ----

PostedText WindowMover::Overlay(const wchar_t* text, bool isPin) const {
  const auto at = overlay_.position;
  return {.message = {.text = text,
                      .handle = static_cast<std::uint64_t>(window_),
                      .rect = {.left = at.x, .top = at.y},
                      .point = {isPin ? 1 : 0, IsLarge() ? 1 : 0}},
          .keep = Keep::UntilStale};
}

PostedText WindowMover::TakeDown() const {
  const auto at = press_.gPressPoint;
  return {.message = {.text = L"WSPRESS",
                      .handle = static_cast<std::uint64_t>(window_),
                      .rect = {.left = at.x, .top = at.y + kTakeDownOffset},
                      .point = {0, isLargeMoverUI_ ? 1 : 0}}};
}

PostedText WindowMover::Enter() const {
  return {.message = {.text = L"WSENTER",
                      .handle = static_cast<std::uint64_t>(window_),
                      .point = {state_ == MoverState::HoverPin ? 1 : 0, IsLarge() ? 1 : 0}},
          .delivery = Delivery::Timeout};
}

}  // namespace tessaview

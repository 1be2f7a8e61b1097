#include "windows/panel_moves.h"

#include <string>

#include "core/numbers.h"
#include "core/trace_log.h"
#include "display/panel_search.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/window_control.h"
#include "windows/patient_calls.h"

namespace tessaview {
namespace {

using os::ShowCommand;

bool HasMaximizeBox(os::WindowHandle window) {
  return (os::WindowStyle(window) & os::kWsMaximizeBox) != 0;
}

/// Browsers draw their own frame: they need to be shown normally before they let themselves be placed, and to be placed
/// twice.
bool IsBrowser(os::WindowHandle window) {
  return os::WindowClassName(window).find(L"Chrome") != std::wstring::npos;
}

std::int32_t FillPanel(os::WindowHandle window, const PanelRect& panel) {
  return RetryWithMoveWindow(window, panel.X, panel.Y, panel.Width, panel.Height) ? kMoveDone : kMoveFailed;
}

os::WindowPlacement PlacementOf(os::WindowHandle window) {
  const auto placement = os::GetPlacement(window);
  return placement ? *placement : os::WindowPlacement{};
}

/// Minimises a window, places it on the other panel and maximises it there. Nothing is retried.
void PlaceMaximized(os::WindowHandle window, os::WindowPlacement placement, Pause pause, bool keepMinimized) {
  placement.showCmd = ShowCommand::ShowMaximized;
  const auto show = [window](ShowCommand command) { Show(window, command); };
  const auto place = [&] {
    if (Hangs(window)) return;
    (void)os::SetPlacement(window, placement);  // a window that refuses stays where it is
  };

  const bool isBrowser = IsBrowser(window);
  if (isBrowser) show(ShowCommand::ShowNormal);
  show(ShowCommand::Minimize);
  os::Sleep(static_cast<std::uint32_t>(pause));
  if (isBrowser && !keepMinimized) show(ShowCommand::Restore);
  place();
  if (isBrowser) place();
}

/// A window that comes from the C panel keeps its size as the eye sees it. A panel without a monitor of its own has no
/// scale.
float SizeFactor(os::WindowHandle window, const PanelDisplayInfo& info) {
  if (os::MonitorOf(window) == info.bPanel.monitor || info.cPanel.scale == 0) return 1.0F;
  return info.bPanel.scale / info.cPanel.scale;
}

std::int32_t FarEdge(std::int32_t size, float factor, std::int32_t near) {
  return TruncateToInt32(static_cast<float>(size) * factor + static_cast<float>(near));
}

/// The restored size, put in the panel's corner.
os::Rect RestoredOnBPanel(const os::Rect& old, float factor, const PanelRect& panel) {
  return {panel.X, panel.Y, FarEdge(old.right - old.left, factor, panel.X),
          FarEdge(old.bottom - old.top, factor, panel.Y)};
}

os::Rect Whole(const PanelRect& panel) {
  return {panel.X, panel.Y, panel.X + panel.Width, panel.Y + panel.Height};
}

}  // namespace

std::int32_t MoveWindowtoBPanel(os::WindowHandle window, bool keepMinimized) {
  if (Hangs(window)) return kMoveFailed;
  const auto info = gPanelDisplayInfo();  // asked after Hangs, which can take seconds
  const auto panel = info.bPanel.SettingsView();
  if (!panel.HasArea()) return kMoveDone;
  if (!HasMaximizeBox(window)) {
    Log(L"[MoveWindowtoBPanel] Window no maximizebox");
    return FillPanel(window, panel);
  }
  Log(L"[MoveWindowtoBPanel] Window has maximizebox");
  auto placement = PlacementOf(window);
  placement.rcNormalPosition = RestoredOnBPanel(placement.rcNormalPosition, SizeFactor(window, info), panel);
  PlaceMaximized(window, placement, Pause::Short, keepMinimized);
  return kMoveDone;
}

std::int32_t MoveWindowtoCPanel(os::WindowHandle window, Pause pause) {
  if (Hangs(window)) return kMoveFailed;
  const auto panel = gPanelDisplayInfo().cPanel.SettingsView();
  if (!panel.HasArea()) return kMoveDone;
  if (!HasMaximizeBox(window)) {
    Log(L"[MoveWindowtoCPanel] Window no maximizebox");
    return FillPanel(window, panel);
  }
  Log(L"[MoveWindowtoCPanel] Window has maximizebox");
  auto placement = PlacementOf(window);
  placement.rcNormalPosition = Whole(panel);
  PlaceMaximized(window, placement, pause, false);
  return kMoveDone;
}

}  // namespace tessaview

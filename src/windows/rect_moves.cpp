#include "windows/rect_moves.h"

#include "core/trace_log.h"
#include "display/panel_search.h"
#include "os/desktop.h"
#include "windows/patient_calls.h"
#include "windows/window_classes.h"

namespace tessaview {
namespace {

using os::ShowCommand;

/// Whether one rectangle lies wholly inside another; edges may meet. One of less than no size lies nowhere.
bool Contains(const PanelRect& outer, const PanelRect& inner) {
  const auto end = [](std::int64_t start, std::int64_t size) { return start + size; };
  if (inner.Width < 0 || inner.Height < 0) return false;
  return outer.X <= inner.X && end(inner.X, inner.Width) <= end(outer.X, outer.Width) && outer.Y <= inner.Y &&
         end(inner.Y, inner.Height) <= end(outer.Y, outer.Height);
}

/// What a window in the B panel leaves to the taskbar, in pixels. A taskbar at the panel's side takes no height.
std::int32_t TaskbarAllowance(const PanelRect& target) {
  const auto bPanel = gBPanel();
  const auto taskbar = PlaceOf(os::WindowRect(os::FindTopWindow(kTaskbarClass)));
  if (!Contains(bPanel, taskbar) || !Contains(bPanel, target)) return 0;
  return taskbar.Height == bPanel.Height ? 0 : taskbar.Height;
}

bool ShowNormally(os::WindowHandle window) {
  if ((os::WindowStyle(window) & os::kWsMaximize) != 0) {
    Log(L"IsOnBPanel and maximize");
    return RetryWithShowWindow(window, ShowCommand::Restore);
  }
  Log(L"IsOnBPanel and not maximize");
  return RetryWithShowWindow(window, ShowCommand::ShowNormal);
}

std::uint32_t MoveStepByStep(os::WindowHandle window, const PanelRect& rect, bool maximizeAfter) {
  std::uint32_t failed = 0;
  const auto height = rect.Height - TaskbarAllowance(rect);
  if (!ShowNormally(window)) failed |= kShowFailed;
  if (!RetryWithMoveWindow(window, rect.X, rect.Y, rect.Width, height)) failed |= kFirstMoveFailed;
  // The first move may cross into a monitor of another scale, where the system resizes the window on arrival.
  if (!RetryWithMoveWindow(window, rect.X, rect.Y, rect.Width, height)) failed |= kSecondMoveFailed;
  if (maximizeAfter && !RetryWithShowWindow(window, ShowCommand::ShowMaximized)) failed |= kShowFailed;
  return failed;
}

}  // namespace

PanelRect PlaceOf(const os::Rect& corners) {
  // Numbers of the UI's may be anything; differences that overflow wrap around.
  const auto difference = [](std::int32_t far, std::int32_t near) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(far) - static_cast<std::uint32_t>(near));
  };
  return {corners.left, corners.top, difference(corners.right, corners.left), difference(corners.bottom, corners.top)};
}

std::uint32_t MoveWindowByRect(os::WindowHandle window, const PanelRect& rect, bool maximizeAfter) {
  Log(L"MoveWindowByRect Start");
  const auto failed =
      Hangs(window) ? kShowFailed | kFirstMoveFailed | kSecondMoveFailed : MoveStepByStep(window, rect, maximizeAfter);
  Log(L"MoveWindowByRect Result = 0x%x", failed);
  return failed;
}

void PlaceInBPanel(os::WindowHandle window, const os::Rect& requested) {
  const auto wanted = PlaceOf(requested);
  MoveWindowByRect(window, wanted, false);

  const auto panel = gBPanel();
  if (!panel.HasArea()) return;
  const auto right = panel.X + panel.Width, bottom = panel.Y + panel.Height;
  const auto area = os::WindowRect(window);
  const auto [x, y, width, height] = PlaceOf(area);
  if (area.right > right && area.bottom > bottom) {
    Log(L"[TASKGROUPLAUNCHAPPS] Both width and height out of B panel, reset position.");
    MoveWindowByRect(window, {right - width, bottom - height, width, height}, false);
  } else if (area.bottom > bottom) {
    Log(L"[TASKGROUPLAUNCHAPPS] Height out of B panel, reset position.");
    MoveWindowByRect(window, {wanted.X, bottom - height, wanted.Width, height}, false);
  } else if (area.right > right) {
    Log(L"[TASKGROUPLAUNCHAPPS] Width out of B panel, reset position.");
    MoveWindowByRect(window, {right - width, wanted.Y, width, wanted.Height}, false);
  }
}

}  // namespace tessaview

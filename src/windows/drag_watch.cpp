#include "windows/drag_watch.h"

#include "os/desktop.h"
#include "os/threads.h"
#include "power/panel_status.h"
#include "uilink/ui_channel.h"
#include "uilink/ui_state.h"
#include "windows/drag_steps.h"
#include "windows/navigator_edge.h"

namespace tessaview {
namespace {

bool CanUiShowOverlay() {
  return os::FindTopWindow(kUiMainClass) != os::WindowHandle::None &&
         os::FindTopWindow(kUiGuideClass) == os::WindowHandle::None && isTessaviewPowerOn.get();
}

void OnMoveSize(os::WindowEvent event, os::WindowHandle window) {
  if (event == os::WindowEvent::MoveSizeStart && CanUiShowOverlay()) OnMoveSizeStart(window);
  // A drag that began has an end, whatever became of UI and panel meanwhile.
  if (event == os::WindowEvent::MoveSizeEnd && (IsMoverArmed() || CanUiShowOverlay())) OnMoveSizeEnd();
}

}  // namespace

void OnMouse(os::MouseEvent event, os::Point pointer) {
  if (isActionMenuBlocked.get()) return;
  switch (event) {
    case os::MouseEvent::Move:
      return IsMoverArmed() ? TrackDraggedWindow() : FollowToNavigatorEdge(pointer);
    case os::MouseEvent::LeftDown:
      return OnLeftButtonDown();
    case os::MouseEvent::LeftUp:
      return OnLeftButtonUp();
  }
}

void StartDragWatch() {
  os::StartThread(L"drag", [] {
    os::WatchWindowEvents(
        os::WindowEvent::MoveSizeStart, os::WindowEvent::MoveSizeEnd,
        [](os::WindowEvent event, os::WindowHandle window, std::int32_t) { OnMoveSize(event, window); });
  });
}

void StartMouseWatch() {
  os::StartThread(L"mouse", [] { os::WatchMouse(OnMouse); });
}

}  // namespace tessaview

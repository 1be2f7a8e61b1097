#include "windows/navigator_edge.h"

#include "core/process_wide.h"
#include "display/panel_geometry.h"
#include "uilink/ui_sender.h"

namespace tessaview {
namespace {

constexpr std::int32_t kNear = 5, kFar = 100;  // pixels above the panel's bottom edge

ProcessWide<bool> gIsNavigatorShown;

}  // namespace

void FollowToNavigatorEdge(os::Point pointer) {
  const auto panel = gCPanel.get();
  if (pointer.x <= panel.X || pointer.x >= panel.X + panel.Width) return;
  const auto distance = panel.Y + panel.Height - pointer.y;
  if (distance > kFar) gIsNavigatorShown.set(false);
  if (distance < kNear && !gIsNavigatorShown.exchange(true)) {
    PostUiText({.message = {.text = L"NAVIGATORSHOW"}, .keep = Keep::UntilStale});
  }
}

}  // namespace tessaview

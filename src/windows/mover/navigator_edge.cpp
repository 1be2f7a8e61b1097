#include "windows/mover/navigator_edge.h"

#include "core/state.h"
#include "display/panel_search.h"
#include "uilink/channel/ui_sender.h"

namespace tessaview {
namespace {

constexpr std::int32_t kNear = 5, kFar = 100;  // pixels above the panel's bottom edge

Shared<bool> gIsNavigatorShown;

}  // namespace

void FollowToNavigatorEdge(os::Point pointer) {
  const auto panel = gCPanel();
  if (pointer.x <= panel.X || pointer.x >= panel.X + panel.Width) return;
  const auto distance = panel.Y + panel.Height - pointer.y;
  if (distance > kFar) gIsNavigatorShown.set(false);
  if (distance < kNear && !gIsNavigatorShown.exchange(true)) {
    PostUiText({texts::kNavigatorShow});
  }
}

}  // namespace tessaview

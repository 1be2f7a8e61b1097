// How the system lays the desktop out after a change: one display is the primary one at (0, 0), no display overlaps
// another, and each touches the rest.

#include <algorithm>
#include <vector>

#include "sim/displays.h"

namespace sim {
namespace {

/// Edges that meet, along at least one pixel.
bool Touch(const os::Rect& a, const os::Rect& b) {
  const bool besides = (a.right == b.left || b.right == a.left) && a.top < b.bottom && b.top < a.bottom;
  const bool aboves = (a.bottom == b.top || b.bottom == a.top) && a.left < b.right && b.left < a.right;
  return besides || aboves;
}

bool FitsIn(const Screen& screen, const std::vector<Screen*>& placed) {
  const auto area = screen.Area();
  const auto overlaps = [&](const Screen* other) { return Overlap(area, other->Area()) > 0; };
  const auto touches = [&](const Screen* other) { return Touch(area, other->Area()); };
  return std::none_of(placed.begin(), placed.end(), overlaps) && std::any_of(placed.begin(), placed.end(), touches);
}

std::int32_t RightEdge(const std::vector<Screen*>& placed) {
  std::int32_t edge = 0;
  for (const auto* screen : placed) edge = std::max(edge, screen->Area().right);
  return edge;
}

}  // namespace

void Displays::LayOut() {
  std::vector<Screen*> own;  // displays with a picture of their own, the primary one first
  for (auto& screen : screens_) {
    if (screen.HasArea() && !MirrorsFirst(screen)) own.push_back(&screen);
  }
  if (own.empty()) return;
  const auto primary = std::find_if(own.begin(), own.end(), [](const Screen* screen) { return screen->IsPrimary(); });
  if (primary != own.end()) std::rotate(own.begin(), primary, primary + 1);
  const auto dx = own.front()->x, dy = own.front()->y;
  for (auto* screen : own) screen->MoveTo(screen->x - dx, screen->y - dy);

  std::vector<Screen*> placed{own.front()};
  for (auto* screen : own) {
    if (screen == own.front()) continue;
    if (!FitsIn(*screen, placed)) screen->MoveTo(RightEdge(placed), 0);
    placed.push_back(screen);
  }
}

os::Rect Displays::PrimaryArea() const {
  const auto primary =
      std::find_if(screens_.begin(), screens_.end(), [](const auto& each) { return each.IsPrimary(); });
  return primary == screens_.end() ? os::Rect{} : primary->Area();
}

void Displays::LayOutAndTell() {
  LayOut();
  if (then_) then_();
}

void Displays::Changed() {
  LayOutAndTell();
  scheduler_.SettleStory();
}

void Displays::UserProjects(os::Topology choice) {
  Project(choice);
  StoreProjection(scheduler_.FileTime());
  Changed();
}

void Displays::Dock(Screen& screen) {
  screen.Plug();
  screen.Attach();
  TakeUpNewest();
  Changed();
}

void Displays::Undock(Screen& screen) {
  Leave(screen);
  scheduler_.SettleStory();
}

void Displays::Leave(Screen& screen) {
  screen.Unplug();
  TakeUpNewest();
  LayOutAndTell();
}

}  // namespace sim

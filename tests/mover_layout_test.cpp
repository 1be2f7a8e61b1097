#include "windows/mover/mover_layout.h"

#include <gtest/gtest.h>

namespace {

using namespace tessaview;
using enum OverlayState;

constexpr OverlayKind kOlder{}, kOlderLarge{.isLarge = true}, kNewer{.isNewerUI = true}, kOnC{.panel = MoverPanel::C};

struct Range {
  int from, to;
};
/// One overlay, for a press at the origin. The newer UI's and those on the C panel are twice that on many pixels.
struct Layout {
  OverlayKind kind;
  OverlayState state;
  os::Point at;
  Range down = {}, pin = {}, up = {}, y;
};

void ExpectLayout(const Layout& each, const OverlayKind& kind, OverlayState state, int factor) {
  const auto area = [&](Range x) {
    return MoverRect{factor * x.from, factor * x.to, factor * each.y.from, factor * each.y.to};
  };
  const auto overlay = LayOutMover(kind, state, {});
  EXPECT_EQ(overlay.position, (os::Point{factor * each.at.x, factor * each.at.y}));
  EXPECT_TRUE(overlay.down == area(each.down) && overlay.pin == area(each.pin) && overlay.winUp == area(each.up));
}

TEST(MoverLayout, FollowsFromPanelUiStateAndSize) {
  for (const auto& each :
       {Layout{.kind = kOlder, .state = Normal, .at = {0, 36}, .down = {25, 126}, .pin = {126, 227}, .y = {56, 136}},
        {.kind = kOlder, .state = Hover, .at = {-25, 24}, .down = {5, 126}, .pin = {126, 247}, .y = {48, 144}},
        {.kind = kOlderLarge, .state = Normal, .at = {0, 36}, .down = {50, 253}, .pin = {253, 456}, .y = {76, 236}},
        {.kind = kOlderLarge, .state = Hover, .at = {-50, 12}, .down = {10, 253}, .pin = {253, 496}, .y = {60, 252}},
        {.kind = kNewer, .state = FirstShow, .at = {-130, -4}, .down = {-50, 100}, .pin = {50, 200}, .y = {36, 116}},
        {.kind = kNewer, .state = Normal, .at = {-130, -4}, .down = {-50, 50}, .pin = {50, 150}, .y = {36, 116}},
        {.kind = kNewer, .state = Hover, .at = {-130, -4}, .down = {-70, 50}, .pin = {50, 170}, .y = {28, 124}},
        {.kind = kOnC, .state = Normal, .at = {-60, 28}, .up = {-50, 50}, .y = {36, 116}},
        {.kind = kOnC, .state = Hover, .at = {-60, 28}, .up = {-60, 60}, .y = {28, 124}}}) {
    auto kind = each.kind;
    const bool onC = kind.panel == MoverPanel::C, isDoubled = kind.isNewerUI || onC;
    ExpectLayout(each, kind, each.state, 1);
    if (each.state == Normal && !kind.isNewerUI) ExpectLayout(each, kind, FirstShow, 1);
    kind.isLarge = kind.isLarge || isDoubled;
    if (isDoubled) ExpectLayout(each, kind, each.state, 2);
    kind.isNewerUI = kind.isNewerUI || onC;  // all the same there
    if (onC) ExpectLayout(each, kind, each.state, 2);
  }
  const auto area = LayOutMover(kOlder, Normal, {}).down;
  EXPECT_TRUE(area.Contains({area.left + 1, area.top + 1}));
  EXPECT_FALSE(area.Contains({area.left + 1, area.top}) || area.Contains({area.left, area.top + 1}));
}

}  // namespace

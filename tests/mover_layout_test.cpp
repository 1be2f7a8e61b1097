#include "windows/mover/mover_layout.h"

#include <gtest/gtest.h>

namespace {

using namespace tessaview;
using enum OverlayState;

constexpr std::int32_t kX = 1000, kY = 300;  // of the press

MoverRect Area(std::int32_t left, std::int32_t right, std::int32_t top, std::int32_t bottom) {
  return {kX + left, kX + right, kY + top, kY + bottom};
}

TEST(MoverLayout, HasTheseOverlaysAroundThePress) {
  struct Row {
    MoverPanel panel;
    bool newer, large;
    OverlayState state;
    os::Point at;
    int left, middle1, middle2, right, top, bottom;  // on B down is (left, middle2), pin is (middle1, right)
  };
  constexpr auto B = MoverPanel::B, C = MoverPanel::C;
  for (const auto& row : {
           Row{B, false, false, FirstShow, {0, 36}, 25, 126, 126, 227, 56, 136},
           Row{B, false, false, Normal, {0, 36}, 25, 126, 126, 227, 56, 136},
           Row{B, false, false, Hover, {-25, 24}, 5, 126, 126, 247, 48, 144},
           Row{B, false, true, FirstShow, {0, 36}, 50, 253, 253, 456, 76, 236},
           Row{B, false, true, Normal, {0, 36}, 50, 253, 253, 456, 76, 236},
           Row{B, false, true, Hover, {-50, 12}, 10, 253, 253, 496, 60, 252},
           Row{B, true, false, FirstShow, {-130, -4}, -50, 50, 100, 200, 36, 116},
           Row{B, true, false, Normal, {-130, -4}, -50, 50, 50, 150, 36, 116},
           Row{B, true, false, Hover, {-130, -4}, -70, 50, 50, 170, 28, 124},
           Row{B, true, true, FirstShow, {-260, -8}, -100, 100, 200, 400, 72, 232},
           Row{B, true, true, Normal, {-260, -8}, -100, 100, 100, 300, 72, 232},
           Row{B, true, true, Hover, {-260, -8}, -140, 100, 100, 340, 56, 248},
           Row{C, false, false, Normal, {-60, 28}, -50, 0, 0, 50, 36, 116},
           Row{C, true, false, FirstShow, {-60, 28}, -50, 0, 0, 50, 36, 116},
           Row{C, false, false, Hover, {-60, 28}, -60, 0, 0, 60, 28, 124},
           Row{C, true, true, Normal, {-120, 56}, -100, 0, 0, 100, 72, 232},
           Row{C, false, true, FirstShow, {-120, 56}, -100, 0, 0, 100, 72, 232},
           Row{C, false, true, Hover, {-120, 56}, -120, 0, 0, 120, 56, 248},
       }) {
    const bool onB = row.panel == B;
    SCOPED_TRACE(testing::Message() << "on B " << onB << " newer " << row.newer << " large " << row.large << " state "
                                    << static_cast<int>(row.state));
    const auto overlay = LayOutMover({row.panel, row.newer, row.large}, row.state, {kX, kY});
    EXPECT_EQ(overlay.position, (os::Point{kX + row.at.x, kY + row.at.y}));
    if (onB) {
      EXPECT_EQ(overlay.down, Area(row.left, row.middle2, row.top, row.bottom));
      EXPECT_EQ(overlay.pin, Area(row.middle1, row.right, row.top, row.bottom));
    } else {
      EXPECT_EQ(overlay.winUp, Area(row.left, row.right, row.top, row.bottom));
    }
    const os::Point inside{kX + (row.left + row.right) / 2 + 1, kY + row.top + 1}, edge{inside.x, kY + row.top};
    const auto isIn = [&](os::Point point) {
      return overlay.down.Contains(point) || overlay.pin.Contains(point) || overlay.winUp.Contains(point);
    };
    EXPECT_TRUE(isIn(inside));
    EXPECT_FALSE(isIn(edge));
    EXPECT_NE(overlay.winUp.Contains(inside), onB);
  }
}

}  // namespace

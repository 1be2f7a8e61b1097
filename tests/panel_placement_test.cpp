// The C panel's place below the B panel: what is put right and how, and the nudge that makes the system lay the desktop
// out anew.

#include "display/panel_placement.h"

#include "display/panel_geometry.h"
#include "display/panel_nudge.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr auto kNoChange = 0U, kPosition = os::kDmPosition, kTurn = os::kDmDisplayOrientation,
               kSize = os::kDmPelsWidth | os::kDmPelsHeight;

/// Looks at the displays as they are, without a controller that would look as well.
void Check() {
  tessaview::InitialDisplay();
  tessaview::CheckCPanel_Position_Orientation();
}

TEST(Placement, IsPutRightInOneChangeThatNamesWhatItChanges) {
  struct Case {
    const char* what;
    std::uint32_t width = 1920, orientation = 3, bHeight = 1080, fields = kPosition | kTurn;
    os::Rect after = kCPanel;
    std::optional<os::Point> bAt = {};
  };
  for (const auto& each :
       {Case{.what = "right", .fields = kNoChange},
        Case{.what = "half a pixel off", .width = 1919, .fields = kNoChange, .after = {0, 1080, 1919, 1595}},
        Case{.what = "narrow", .width = 1280, .after = {320, 1080, 1600, 1595}},
        Case{
            .what = "upright", .orientation = 0, .fields = kPosition | kTurn | kSize, .after = {702, 1080, 2622, 1595}},
        Case{.what = "upside down", .orientation = 1},
        Case{.what = "a lower B panel", .bHeight = 900, .after = {0, 900, 1920, 1415}},
        Case{.what = "level with the primary display",
        .fields = kNoChange,
        .after = {1920, 1080, 3840, 1595},
        .bAt = {{1920, 0}}},
        Case{.what = "beside", .width = 1280, .after = {2240, 1440, 3520, 1955}, .bAt = {{1920, 360}}},
        Case{.what = "put where it is", .after = {-1920, 720, 0, 1235}, .bAt = {{-1920, -360}}}}) {
    Laptop laptop;
    auto& c = laptop.displays.cPanel();
    laptop.displays.bPanel().height = each.bHeight;
    c.width = each.width;
    c.Rotate(each.orientation);
    if (each.bAt) laptop.displays.AddPrimary(*each.bAt);
    Check();
    const auto& changes = laptop.displays.SettingsChanges();
    EXPECT_EQ(changes.size(), each.fields == kNoChange ? 0U : 1U);
    if (!changes.empty()) EXPECT_EQ(changes[0].settings.fields, each.fields);
    if (!changes.empty()) EXPECT_EQ(changes[0].flags, os::kCdsUpdateRegistry | os::kCdsGlobal);
    EXPECT_EQ(c.Area(), each.after) << each.what;
    EXPECT_EQ(c.orientation, 3U);
  }
}

TEST(Placement, OfAPanelWithoutADesktopToBeOnIsItsTurnAlone) {
  for (const bool turned : {false, true}) {
    for (const auto topology : {Topology::External, Topology::Internal, Topology::Extend}) {
      Laptop laptop;
      auto& c = laptop.displays.cPanel();
      laptop.displays.Project(topology);
      if (topology == Topology::Extend) c.LoseDesktopArea();
      if (turned) topology == Topology::Extend ? static_cast<void>(c.rotation = 1) : c.Rotate(1);
      Check();
      const bool mended = turned && topology != Topology::Internal;
      EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
      EXPECT_EQ(laptop.displays.ConfigurationChanges().size(), mended ? 1U : 0U);
      if (mended) EXPECT_EQ(c.rotation, os::kRotation270);
    }
  }
}

TEST(Placement, IsLookedAtOnceUnlessThePanelIsTurned) {
  Laptop laptop;
  laptop.faults.Fail<&os::ChangeDisplaySettings>();
  laptop.displays.cPanel().MoveTo(10, 1080);
  for (int twice = 0; twice < 2; ++twice) Check();
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplaySettings>(), 1u) << "a repair that failed is not tried again";
  laptop.displays.cPanel().orientation = 1;
  for (int twice = 0; twice < 2; ++twice) Check();
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplaySettings>(), 3u) << "but while the panel is turned it is";
}

TEST(Nudge, WaitsForThePanelAndMovesItByOnePixel) {
  for (const std::uint32_t appearsAfterMs : {0U, 1200U, 2900U}) {
    Laptop laptop;
    laptop.displays.AddPrimary({1920, 360});
    if (appearsAfterMs > 0) laptop.displays.AppearsAfter(laptop.displays.cPanel(), appearsAfterMs);
    const auto start = laptop.NowMs();
    tessaview::MoveCPanelMonitorOnePixel();
    EXPECT_EQ(laptop.NowMs() - start, (appearsAfterMs + 499) / 500 * 500);
    EXPECT_EQ(laptop.displays.cPanel().x - 1920, appearsAfterMs < 2900 ? 1 : 0) << "the time is for waiting and moving";
    EXPECT_EQ(laptop.displays.cPanel().y, 1440);
  }
  Laptop alone;
  alone.displays.bPanel().Unplug();
  tessaview::MoveCPanelMonitorOnePixel();
  EXPECT_TRUE(alone.displays.SettingsChanges().empty()) << "its place is below the B panel, which is not there";
}

TEST(Nudge, GivesUpAfterThreeSeconds) {
  Laptop laptop;
  const auto nudge = [&] {
    const auto start = laptop.NowMs();
    tessaview::MoveCPanelMonitorOnePixel();
    return laptop.NowMs() - start;
  };
  laptop.faults.Fail<&os::CurrentDisplaySettings>({.times = 1, .after = 2});  // after those of the search
  laptop.faults.Fail<&os::ChangeDisplaySettings>({.times = 2});
  EXPECT_EQ(nudge(), 1500U);
  EXPECT_EQ(laptop.displays.cPanel().x, 1);
  EXPECT_EQ(laptop.displays.SettingsChanges().back().settings.fields, kPosition);
  laptop.faults.Fail<&os::ChangeDisplaySettings>();
  laptop.faults.Slow<&os::ChangeDisplaySettings>(150);
  EXPECT_EQ(nudge(), 3250U);
  laptop.faults.ClearAll();
  laptop.sessions.LoseConsoleUntold();
  EXPECT_EQ(nudge(), 3000U) << "what may not be done is not done either";
}

}  // namespace

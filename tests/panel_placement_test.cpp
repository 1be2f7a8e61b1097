// The C panel's place below the B panel: what is put right and how, and the nudge that makes the system lay the desktop
// out anew.

#include "display/panel_placement.h"

#include "display/monitor_change.h"
#include "display/panel_geometry.h"
#include "display/panel_nudge.h"
#include "tests/support.h"

namespace {

using namespace support;
using tessaview::CheckCPanel_Position_Orientation;

constexpr auto kDeadLock = L"[CheckCPanel_Position_Orientation] Prevent DispalyChange Dead Lock \n";

/// Looks at the displays as they are, without a controller that would look as well.
void Check() {
  tessaview::InitialDisplay();
  CheckCPanel_Position_Orientation();
}

struct Place {
  std::int32_t x, y;
  std::uint32_t width, height, orientation;
  friend bool operator==(const Place&, const Place&) = default;
};
Place PlaceOf(const sim::Screen& screen) {
  return {screen.x, screen.y, screen.width, screen.height, screen.orientation};
}

TEST(Placement, IsPutRightInOneChangeThatNamesWhatItChanges) {
  constexpr std::uint32_t kNoChange = 0;
  using Case = std::tuple<const char*, void (*)(sim::Screen&, sim::Screen&), std::uint32_t, Place>;
  for (const auto& [what, arrange, fields, after] : {Case{"right", [](auto&, auto&) {}, kNoChange, {0, 1080, 1920, 515, 3}},
           Case{"ten pixels off", [](auto&, auto&c) { c.MoveTo(10, 1080); }, 0xA0, {0, 1080, 1920, 515, 3}},
           Case{"at the right", [](auto&, auto&c) { c.MoveTo(1920, 0); }, 0xA0, {0, 1080, 1920, 515, 3}},
           Case{"half a pixel", [](auto&, auto&c) { c.width = 1919; }, kNoChange, {0, 1080, 1919, 515, 3}},
           Case{"narrow", [](auto&, auto&c) { c.width = 1280; }, 0xA0, {320, 1080, 1280, 515, 3}},
           Case{"upright", [](auto&, auto&c) { c.Rotate(0); }, 0x1800A0, {702, 1080, 1920, 515, 3}},
           Case{"upside down", [](auto&, auto&c) { c.Rotate(1); }, 0xA0, {0, 1080, 1920, 515, 3}},
           Case{"flipped upright", [](auto&, auto&c) { c.Rotate(2); }, 0x1800A0, {702, 1080, 1920, 515, 3}},
           Case{"a lower B panel",
                [](auto&b, auto&c) {
                  b.height = 900;
                  c.MoveTo(0, 1080);
                },
                0xA0,
                {0, 900, 1920, 515, 3}}}) {
    SCOPED_TRACE(what);
    Laptop laptop;
    auto& c = laptop.displays.cPanel();
    arrange(laptop.displays.bPanel(), c);
    Check();
    const auto& changes = laptop.displays.SettingsChanges();
    EXPECT_EQ(changes.empty(), fields == kNoChange);
    if (!changes.empty()) {
      EXPECT_EQ(changes.size(), 1u);
      EXPECT_EQ(changes[0].gdiName, c.gdiName);
      EXPECT_EQ(changes[0].settings.fields, fields);
      EXPECT_EQ(changes[0].flags, 9u);
    }
    EXPECT_EQ(PlaceOf(c), after);
    EXPECT_TRUE(laptop.displays.ConfigurationChanges().empty());
  }
}

TEST(Placement, OfAPanelWithoutADesktopToBeOnIsItsTurnAlone) {
  using Case = std::tuple<const char*, void (*)(Laptop&), const wchar_t*, bool>;
  constexpr auto kB = L"[CheckCPanel_Position_Orientation] GetBPanelParameter FALSE \n";
  constexpr auto kC = L"[CheckCPanel_Position_Orientation] GetCPanelParameter FALSE \n";
  constexpr auto kSpecial = L"[CheckCPanel_Position_Orientation] Special Case, set Orientation \n";
  for (const auto& [what, arrange, log, turned] :
       {Case{"second screen only", [](Laptop& l) { l.displays.Project(Topology::External); }, kB, false},
        Case{"second screen only, turned",
             [](Laptop& l) {
               l.displays.Project(Topology::External);
               l.displays.cPanel().Rotate(1);
             },
             kSpecial, true},
        Case{"PC screen only", [](Laptop& l) { l.displays.Project(Topology::Internal); }, kC, false},
        Case{"no area, turned on its path",
             [](Laptop& l) {
               l.displays.cPanel().LoseDesktopArea();
               l.displays.cPanel().rotation = 1;
             },
             kSpecial, true}}) {
    SCOPED_TRACE(what);
    Laptop laptop;
    arrange(laptop);
    Check();
    EXPECT_TRUE(laptop.trace.Contains(log));
    EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
    EXPECT_EQ(laptop.displays.ConfigurationChanges().size(), turned ? 1u : 0u);
    if (turned) EXPECT_EQ(laptop.displays.cPanel().rotation, os::kRotation270);
  }
}

TEST(Placement, IsLookedAtOnceUnlessThePanelIsTurned) {
  Laptop laptop;
  laptop.faults.Fail<&os::ChangeDisplaySettings>();
  laptop.displays.cPanel().MoveTo(10, 1080);
  Check();
  Check();
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplaySettings>(), 1u) << "a repair that failed is not tried again";
  EXPECT_TRUE(LogsInOrder(laptop, {L"[CheckCPanel_Position_Orientation] isWrongPosition = 1, isWrongOrientation = 0 \n",
                                   L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = 0 \n", kDeadLock}));
  laptop.displays.cPanel().orientation = 1;
  Check();
  Check();
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplaySettings>(), 3u) << "but while the panel is turned it is";
}

TEST(MonitorChange, KeepsTheSizeOrExchangesIt) {
  using Case = std::tuple<std::uint32_t, tessaview::MonitorChange, std::uint32_t, os::Size>;
  for (const auto& [orientation, change, fields, size] :
       {Case{0, {.width = 800, .height = 600}, 0x180000, {800, 600}},
        Case{3, {.width = 800, .height = 300, .x = 5}, 0x180020, {300, 800}}, Case{3, {.y = 7}, 0x20, {1920, 515}},
        Case{0, {.turn = tessaview::Turn::To270}, 0x180080, {1920, 515}}}) {
    Laptop laptop;
    laptop.displays.cPanel().Rotate(orientation);
    tessaview::SetMonitorEx(laptop.displays.cPanel().gdiName, change);
    ASSERT_EQ(laptop.displays.SettingsChanges().size(), 1u);
    const auto& asked = laptop.displays.SettingsChanges()[0].settings;
    EXPECT_EQ(asked.fields, fields);
    EXPECT_EQ((os::Size{static_cast<int>(asked.width), static_cast<int>(asked.height)}), size);
  }
  Laptop laptop;
  EXPECT_FALSE(tessaview::SetMonitorEx(L"\\\\.\\DISPLAY9", {.x = 1}));
}

TEST(Nudge, WaitsForThePanelAndMovesItByOnePixel) {
  using Case = std::pair<std::uint32_t, const wchar_t*>;
  for (const auto& [appearsAfterMs, time] : {Case{0, L"0"}, Case{1200, L"1500"}, Case{2900, L"3000"}}) {
    Laptop laptop;
    if (appearsAfterMs > 0) laptop.displays.AppearsAfter(laptop.displays.cPanel(), appearsAfterMs);
    tessaview::MoveCPanelMonitorOnePixel();
    const auto found = std::wstring(L"[MoveCPanelMonitorOnePixel] isCPanelFound Time : ") + time + L" ";
    EXPECT_TRUE(LogsInOrder(laptop, {L"[MoveCPanelMonitorOnePixel] Start Move CPanel", found.c_str(),
                                     L"[MoveCPanelMonitorOnePixel] CPanel : (x,y,w,h) = (0,1080,1920,515)",
                                     L"[MoveCPanelMonitorOnePixel] SetMonitorEx Sucess"}));
    EXPECT_EQ(laptop.displays.cPanel().x, appearsAfterMs < 2900 ? 1 : 0) << "the time is for waiting and moving";
    EXPECT_EQ(laptop.displays.cPanel().y, 1080);
  }
}

TEST(Nudge, GivesUpAfterThreeSeconds) {
  Laptop laptop;
  laptop.displays.cPanel().Unplug();
  tessaview::MoveCPanelMonitorOnePixel();
  EXPECT_TRUE(LogsInOrder(laptop, {L"[MoveCPanelMonitorOnePixel] isCPanelFound Time : 3000 ",
                                   L"[MoveCPanelMonitorOnePixel] isCPanelFound Time Out"}));

  laptop.displays.cPanel().Plug();
  laptop.faults.Fail<&os::ChangeDisplaySettings>({.times = 2});
  tessaview::MoveCPanelMonitorOnePixel();
  EXPECT_EQ(laptop.trace.Count(L"[MoveCPanelMonitorOnePixel] SetMonitorEx Failed"), 2u);
  EXPECT_EQ(laptop.displays.cPanel().x, 1);

  laptop.faults.Fail<&os::ChangeDisplaySettings>();
  laptop.faults.Slow<&os::ChangeDisplaySettings>(150);
  tessaview::MoveCPanelMonitorOnePixel();
  EXPECT_TRUE(laptop.trace.Contains(L"[MoveCPanelMonitorOnePixel] Time Out"));
}

}  // namespace

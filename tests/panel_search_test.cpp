// Which of the displays are the panels, and where they are.

#include "display/panel_search.h"

#include "display/panel_geometry.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr auto kFactory = sim::Registry::kFactoryConfig;
constexpr PanelRect kAbsent{}, kBAtTop{0, 0, 1920, 1080}, kCBelow{0, 1080, 1920, 515};

PanelRect MonitorView(const PanelInfo& panel) {
  return {panel.rcMonitorLeft, panel.rcMonitorTop, panel.rcMonitorWidth, panel.rcMonitorHeight};
}

TEST(PanelSearch, FindsBothPanelsWithAllThatIsToKnow) {
  Laptop laptop;
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888#4&1b1f3fd7&0&uid8392784#{e6f07b5f}";
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  const auto [b, c] = gPanelDisplayInfo();
  EXPECT_EQ(b.gdiDeviceName, L"\\\\.\\DISPLAY1");
  EXPECT_EQ(b.SettingsView(), kBAtTop);
  EXPECT_EQ(c.gdiDeviceName, L"\\\\.\\DISPLAY2");
  EXPECT_EQ(c.SettingsView(), kCBelow);
  EXPECT_EQ(c.displayOrientation, 3U);
  EXPECT_NE(c.monitor, b.monitor);

  laptop.displays.Project(Topology::Clone);  // its source is the B panel's
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  const auto cloned = gPanelDisplayInfo().cPanel;
  EXPECT_TRUE(cloned.SettingsView() == kAbsent && MonitorView(cloned) == kAbsent && cloned.scale == 0);
}

TEST(PanelSearch, TellsThePanelsByTheIdsUpToTheirLastBackslash) {
  struct Ids {
    const wchar_t *b = L"DISPLAY\\BOE0D53\\4&1", *c = L"DISPLAY\\TSB8888\\4&2";
    PanelsFound found;
  };
  for (const auto& [b, c, found] :
       {Ids{.found = PanelsFound::Both},
        {.b = L"BOE0D53", .c = L"TSB8888", .found = PanelsFound::Both},   // whole without a backslash
        {.c = L"DISPLAY\\BOE0D53\\another", .found = PanelsFound::Both},  // one display may be both
        {.b = L"display\\boe0d53\\4&1", .found = PanelsFound::OnlyC},     // small letters never match
        {.b = L"DISPLAY\\BOE0D5X\\1", .c = L"X", .found = PanelsFound::None},
        {.b = L"\\4&1", .found = PanelsFound::OnlyC},                     // nothing before the backslash
        {.b = L"DISPLAY\\BOE0D53\\4&9\\2", .found = PanelsFound::OnlyC},  // an instance within has to match
        {.b = L"", .found = PanelsFound::None},                           // both are needed
        {.c = L"", .found = PanelsFound::None}}) {
    Laptop laptop;
    laptop.registry.SetText(kFactory, L"BPanelHardwareID", b);
    laptop.registry.SetText(kFactory, L"CPanelHardwareID", c);
    EXPECT_EQ(EnumDisplayDevice(), found);
  }
}

TEST(PanelSearch, OverlooksDisplaysThatAreNotPlainlyActive) {
  for (const auto change : {+[](Screen& s) { s.Unplug(); }, +[](Screen& s) { s.Detach(); },
                            +[](Screen& s) { s.pathFlags = 1 | 8; }, +[](Screen& s) { s.targetAvailable = false; }}) {
    Laptop laptop;
    change(laptop.displays.cPanel());
    EXPECT_EQ(EnumDisplayDevice(), PanelsFound::OnlyB);
    EXPECT_EQ(gCPanel(), kAbsent);
    change(laptop.displays.bPanel());
    EXPECT_EQ(EnumDisplayDevice(), PanelsFound::None);
    EXPECT_EQ(gBPanel(), kAbsent);
  }
}

TEST(PanelSearch, IsNotLedAstrayByOtherMonitorsOrNumbers) {
  Laptop laptop;
  laptop.displays.AddMonitor({.instanceId = L"DISPLAY\\DEL40A9\\5&2", .gdiName = L"\\\\.\\DISPLAY11", .x = 1920});
  laptop.displays.bPanel().gdiName = L"\\\\.\\DISPLAY3";
  laptop.displays.cPanel().gdiName = L"\\\\.\\DISPLAY1";
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  EXPECT_EQ(gPanelDisplayInfo().bPanel.SettingsView(), kBAtTop);
  EXPECT_EQ(gPanelDisplayInfo().cPanel.SettingsView(), kCBelow);
  laptop.displays.cPanel().gdiName = L"";
  EnumDisplayDevice();
  EXPECT_EQ(gCPanel(), kAbsent) << "without a name it is no monitor";
}

TEST(PanelSearch, ScalesPositionsByTheSmallestScaleAndSizesByTheirOwn) {
  Laptop laptop;
  auto &b = laptop.displays.bPanel(), &c = laptop.displays.cPanel();
  b.MoveTo(-2880, -101);
  c.MoveTo(-2880, 1520);
  b.width = 2880, b.height = 1621;
  b.dpi = 192, c.dpi = 144;
  laptop.displays.AddMonitor({.dpi = 120});
  EnumDisplayDevice();
  const auto found = gPanelDisplayInfo();
  EXPECT_EQ(MonitorView(found.bPanel), (PanelRect{-2304, -80, 1440, 810}));
  EXPECT_EQ(MonitorView(found.cPanel), (PanelRect{-2304, 1216, 1280, 343}));
  EXPECT_EQ(found.bPanel.scale, 2.0F);
  EXPECT_EQ(found.bPanel.SettingsView(), (PanelRect{-2880, -101, 2880, 1621})) << "never scaled";
}

TEST(PanelGeometry, IsRefreshedByOneThreadAtATime) {
  Laptop laptop({.interleaving = true});
  laptop.faults.Slow<&os::DesktopMonitors>(7);
  const auto start = laptop.NowMs();
  for (int i = 0; i < 4; ++i) {
    os::StartThread(L"refresher", [] {
      for (int round = 0; round < 3; ++round) InitialDisplay();
    });
  }
  EXPECT_TRUE(laptop.Settle());
  EXPECT_EQ(laptop.NowMs() - start, 12 * 7U) << "no two searches at the same time";
}

}  // namespace

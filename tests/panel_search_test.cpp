// Which of the displays are the panels, and where they are.

#include "display/panel_search.h"

#include "display/panel_geometry.h"
#include "os/displays.h"
#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr auto kFactory = sim::Registry::kFactoryConfig;
constexpr PanelRect kAbsent{}, kBAtTop{0, 0, 1920, 1080}, kCBelow{0, 1080, 1920, 515};

PanelRect MonitorView(const PanelInfo& panel) {
  return {panel.rcMonitorLeft, panel.rcMonitorTop, panel.rcMonitorWidth, panel.rcMonitorHeight};
}

void ExpectNothingButTheId(const PanelInfo& panel) {
  EXPECT_EQ(panel.gdiDeviceName, L"");
  EXPECT_EQ(panel.SettingsView(), kAbsent);
  EXPECT_EQ(MonitorView(panel), kAbsent);
  EXPECT_EQ(panel.displayFrequency, 0U);
  EXPECT_EQ(panel.displayOrientation, 0U);
}

TEST(PanelSearch, FindsBothPanelsWithAllThatIsToKnow) {
  Laptop laptop;
  laptop.displays.bPanel().dpi = 144;
  laptop.displays.cPanel().frequency = 30;
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888#4&1b1f3fd7&0&uid8392784#{e6f07b5f}";
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  const auto [b, c] = gPanelDisplayInfo();

  EXPECT_EQ(b.gdiDeviceName, L"\\\\.\\DISPLAY1");
  EXPECT_EQ(b.hardwareId, L"DISPLAY\\BOE0D53");
  EXPECT_EQ(b.SettingsView(), kBAtTop);
  EXPECT_EQ(c.gdiDeviceName, L"\\\\.\\DISPLAY2");
  EXPECT_EQ(c.hardwareId, L"DISPLAY\\TSB8888");
  EXPECT_EQ(c.monitorDevicePath, laptop.displays.cPanel().devicePath) << "as reported, not as compared";
  EXPECT_EQ(c.SettingsView(), kCBelow);
  EXPECT_EQ(MonitorView(c), kCBelow);
  EXPECT_EQ(c.displayFrequency, 30U);
  EXPECT_EQ(c.displayOrientation, 3U);
  EXPECT_NE(c.monitor, b.monitor);
}

TEST(PanelSearch, TellsThePanelsByTheIdsUpToTheirLastBackslash) {
  using Case = std::tuple<const wchar_t*, const wchar_t*, int>;
  constexpr auto kB = L"DISPLAY\\BOE0D53\\4&1", kC = L"DISPLAY\\TSB8888\\4&2";
  for (const auto& [b, c, found] : {Case{kB, kC, 1},
                                    {L"DISPLAY\\BOE0D53\\", L"DISPLAY\\TSB8888\\another instance", 1},
                                    {L"BOE0D53", L"TSB8888", 1},            // whole without a backslash
                                    {kB, L"DISPLAY\\BOE0D53\\another", 1},  // one display may be both
                                    {L"DISPLAY\\BOE", L"DISPLAY\\TSB", 1},  // "DISPLAY" matches every display
                                    {L"display\\boe0d53\\4&1", kC, 3},      // small letters never match
                                    {L"DISPLAY\\BOE0D5X\\1", L"X", 0},
                                    {L"\\4&1", kC, 3},                        // nothing before the backslash
                                    {L"DISPLAY\\BOE0D53\\4&9\\2", kC, 3}}) {  // an instance within would have to match
    SCOPED_TRACE(testing::PrintToString(b) + testing::PrintToString(c));
    Laptop laptop;
    laptop.registry.SetText(kFactory, L"BPanelHardwareID", b);
    laptop.registry.SetText(kFactory, L"CPanelHardwareID", c);
    EXPECT_EQ(static_cast<int>(EnumDisplayDevice()), found);
  }
}

TEST(PanelSearch, FindsNothingWithoutBothIds) {
  for (const auto spoil : {+[](Registry& r) { r.Remove(kFactory, L"BPanelHardwareID"); },
                           // Larger than the buffer.
                           +[](Registry& r) { r.SetText(kFactory, L"BPanelHardwareID", std::wstring(512, L'B')); },
                           +[](Registry& r) { r.SetText(kFactory, L"CPanelHardwareID", L""); }}) {
    Laptop laptop;
    spoil(laptop.registry);
    EXPECT_EQ(EnumDisplayDevice(), PanelsFound::None);
    const auto [b, cPanel] = gPanelDisplayInfo();
    ExpectNothingButTheId(b);
    ExpectNothingButTheId(cPanel);
    EXPECT_EQ(b.hardwareId + cPanel.hardwareId, L"");
  }
}

TEST(PanelSearch, OverlooksDisplaysThatAreNotPlainlyActive) {
  for (const auto change :
       {+[](Screen& s) { s.Unplug(); }, +[](Screen& s) { s.Detach(); }, +[](Screen& s) { s.pathFlags = 1 | 8; }}) {
    Laptop laptop;
    change(laptop.displays.cPanel());
    EXPECT_EQ(EnumDisplayDevice(), PanelsFound::OnlyB);
    ExpectNothingButTheId(gPanelDisplayInfo().cPanel);
    change(laptop.displays.bPanel());
    EXPECT_EQ(EnumDisplayDevice(), PanelsFound::None);
    ExpectNothingButTheId(gPanelDisplayInfo().bPanel);
    EXPECT_EQ(gPanelDisplayInfo().bPanel.hardwareId, L"DISPLAY\\BOE0D53");
  }
}

TEST(PanelSearch, IsNotLedAstrayByOtherMonitorsOrNumbersAndTakesTheLastWithAPanelsId) {
  Laptop laptop;
  laptop.displays.AddMonitor({.instanceId = L"DISPLAY\\DEL40A9\\5&2", .gdiName = L"\\\\.\\DISPLAY11", .x = 1920});
  laptop.displays.bPanel().gdiName = L"\\\\.\\DISPLAY3";
  laptop.displays.cPanel().gdiName = L"\\\\.\\DISPLAY1";
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  EXPECT_EQ(gPanelDisplayInfo().bPanel.SettingsView(), kBAtTop);
  EXPECT_EQ(gPanelDisplayInfo().cPanel.SettingsView(), kCBelow);

  laptop.displays.AddMonitor({.instanceId = L"DISPLAY\\TSB8888\\5&2", .x = 1920, .width = 800, .height = 600});
  EXPECT_EQ(EnumDisplayDevice(), PanelsFound::Both);
  EXPECT_EQ(gPanelDisplayInfo().cPanel.SettingsView(), (PanelRect{1920, 0, 800, 600}));
}

TEST(PanelSearch, ScalesPositionsByTheSmallestScaleAndSizesByTheirOwn) {
  using Case = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, PanelRect, PanelRect, float, float>;
  // B at (-2880, -101) with 2880 x 1621 pixels, C at (-2880, 1520) with 1920 x 515.
  for (const auto& [bDpi, cDpi, thirdDpi, bView, cView, bScale, cScale] :
       {Case{144, 96, 96, {-2880, -101, 1920, 1080}, {-2880, 1520, 1920, 515}, 1.5F, 1.0F},
        {192, 192, 120, {-2304, -80, 1440, 810}, {-2304, 1216, 960, 257}, 2.0F, 2.0F}}) {
    SCOPED_TRACE(bDpi);
    Laptop laptop;
    auto& b = laptop.displays.bPanel();
    b.MoveTo(-2880, -101);
    b.width = 2880, b.height = 1621, b.dpi = bDpi;
    laptop.displays.cPanel().MoveTo(-2880, 1520);
    laptop.displays.cPanel().dpi = cDpi;
    laptop.displays.AddMonitor({.dpi = thirdDpi});
    EnumDisplayDevice();
    const auto found = gPanelDisplayInfo();
    EXPECT_EQ(MonitorView(found.bPanel), bView);
    EXPECT_EQ(MonitorView(found.cPanel), cView);
    EXPECT_EQ(found.bPanel.scale, bScale);
    EXPECT_EQ(found.cPanel.scale, cScale);
    EXPECT_EQ(found.bPanel.SettingsView(), (PanelRect{-2880, -101, 2880, 1621})) << "never scaled";
  }
}

TEST(PanelSearch, LeavesZeroWhatItCannotRead) {
  using sim::Faults;
  using Case = std::tuple<void (*)(Faults&), PanelsFound, PanelRect, PanelRect>;  // settings, monitor: of the B panel
  for (const auto& [fail, found, settings, monitor] :
       {Case{[](Faults& f) { f.Fail<&os::QueryDisplayConfiguration>(); }, PanelsFound::None, {}, {}},
        {[](Faults& f) { f.Fail<&os::QueryTargetName>(); }, PanelsFound::None, {}, {}},
        {[](Faults& f) { f.Fail<&os::SourceGdiName>(); }, PanelsFound::Both, {}, {}},
        {[](Faults& f) { f.Fail<&os::DesktopMonitors>(); }, PanelsFound::Both, kBAtTop, {}},
        {[](Faults& f) { f.Fail<&os::DisplayDeviceName>(); }, PanelsFound::Both, {}, kBAtTop},
        {[](Faults& f) { f.Fail<&os::CurrentDisplaySettings>({.times = 1}); }, PanelsFound::Both, {}, kBAtTop}}) {
    Laptop laptop;
    fail(laptop.faults);
    EXPECT_EQ(EnumDisplayDevice(), found);
    EXPECT_EQ(gPanelDisplayInfo().bPanel.SettingsView(), settings);
    EXPECT_EQ(MonitorView(gPanelDisplayInfo().bPanel), monitor);
  }
}

TEST(PanelGeometry, IsThatOfThePanelsThatAreThere) {
  using Case = std::tuple<Topology, PanelRect, PanelRect>;
  Laptop laptop;
  for (const auto& [topology, b, c] : {Case{Topology::Extend, kBAtTop, kCBelow},
                                       {Topology::Internal, kBAtTop, kAbsent},
                                       {Topology::External, kAbsent, kCBelow}}) {
    laptop.displays.Project(topology);
    InitialDisplay();
    EXPECT_EQ(gBPanel(), b);
    EXPECT_EQ(gCPanel(), c);
  }
  laptop.registry.RemoveKey(sim::Registry::kFactoryConfig);
  InitialDisplay();
  EXPECT_EQ(gCPanel(), kAbsent);
}

/// Several threads refresh at once while the system is slow and the panel comes and goes: each refresh is whole.
TEST(PanelGeometry, IsRefreshedByOneThreadAtATime) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(seed);
    Laptop laptop({.seed = seed, .interleaving = true});
    laptop.faults.Slow<&os::DesktopMonitors>(7);
    const auto start = laptop.NowMs();
    for (int i = 0; i < 4; ++i) {
      os::StartThread(L"refresher", [] {
        for (int round = 0; round < 3; ++round) InitialDisplay();
      });
    }
    laptop.After(10, [&] { laptop.displays.cPanel().Unplug(); });
    laptop.After(40, [&] { laptop.displays.cPanel().Plug(); });
    EXPECT_TRUE(laptop.Settle());
    EXPECT_EQ(gBPanel(), kBAtTop);
    EXPECT_EQ(gCPanel(), kCBelow);
    EXPECT_EQ(laptop.NowMs() - start, 12 * 7U) << "no two searches at the same time";
  }
}

}  // namespace

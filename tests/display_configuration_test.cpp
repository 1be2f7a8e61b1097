// Reading and changing the display configuration: rotation of paths, projection, virtual monitors.

#include "display/panel_search.h"
#include "display/path_rotation.h"
#include "display/projection_mode.h"
#include "display/virtual_monitor.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr MonitorKey kKey = kCPanelModel;

TEST(PathRotation, IsThatOfThePathCarryingTheKeyAsOneOfItsParts) {
  Laptop laptop;
  for (const auto& [key, rotation] : {std::pair(L"tsb8888", 4U),
                                      {L"BOE0D53", 1U},
                                      {L"TSB888", 0U},
                                      {L"SB8888", 0U},
                                      {L"TSB8888#4&1B1F3FD7&0&UID8392784", 4U}}) {
    EXPECT_EQ(GetMonitorRotation({key}), rotation) << testing::PrintToString(key);
  }
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888##4&1#{e6f07b5f}";
  EXPECT_EQ(GetMonitorRotation(kKey), 4U);
}

TEST(PathRotation, IsReadAndSetTo270DegreesOnUsablePathsOnly) {
  using Change = void (*)(Screen&);
  for (const auto& [isUsable, change] :
       {std::pair<bool, Change>(true, [](Screen& s) { s.pathFlags = 1 | 8, s.targetStatusFlags = 0x80; }),
        {false, [](Screen& s) { s.pathFlags = 8; }},
        {false, [](Screen& s) { s.targetAvailable = false; }},
        {false, [](Screen& s) { s.targetStatusFlags = 0; }}}) {
    Laptop laptop;
    auto& c = laptop.displays.cPanel();
    c.rotation = 2;
    change(c);
    EXPECT_EQ(GetMonitorRotation(kKey), isUsable ? 2U : 0U);
    EXPECT_EQ(SetMonitorEx(kKey), isUsable ? 0 : -1);
    EXPECT_EQ(c.rotation, isUsable ? os::kRotation270 : 2U);
    const auto& changes = laptop.displays.ConfigurationChanges();
    ASSERT_EQ(changes.size(), isUsable ? 1U : 0U);
    if (!isUsable) continue;
    EXPECT_EQ(changes[0].flags,
              os::kSdcApply | os::kSdcUseSuppliedConfig | os::kSdcSaveToDatabase | os::kSdcAllowChanges);
    EXPECT_EQ(changes[0].paths.size(), 2U) << "the whole configuration";
  }
}

TEST(DisplayQuery, IsMadeAgainWhileTheListGrowsButNotForEver) {
  for (const auto& [failure, isRead] : {std::pair(sim::Failure{.error = 122, .times = 1}, true),
                                        {sim::Failure{.error = 122, .times = 4}, true},
                                        {sim::Failure{.error = 122}, false},
                                        {sim::Failure{.error = 5, .times = 1}, false}}) {
    Laptop laptop;
    laptop.faults.Fail<&os::QueryDisplayConfiguration>(failure);
    QueryWinPMode();
    EXPECT_EQ(isExtendMode(), isRead);
    if (failure.times) laptop.faults.Fail<&os::QueryDisplayConfiguration>(failure);
    EXPECT_EQ(EnumDisplayDevice() == PanelsFound::Both, isRead);
  }
}

TEST(VirtualMonitor, IsKnownByItsOldSpelling) {
  const std::wstring real = L"\\\\?\\DISPLAY#BOE0D53#4&1";
  Laptop laptop;
  laptop.faults.Fail<&os::WallpaperMonitorPaths>({.times = 1});
  EXPECT_FALSE(CheckVirtualMonitor());
  laptop.displays.wallpaperPaths = {real, L"\\\\?\\DISPLAY#legacy#1", L"\\\\?\\DISPLAY#LAGACY#1"};
  EXPECT_FALSE(CheckVirtualMonitor());
  laptop.displays.wallpaperPaths = {real, L"\\\\?\\DISPLAY#lagacy#1"};
  EXPECT_TRUE(CheckVirtualMonitor());
}

}  // namespace

// Reading and changing the display configuration: rotation of paths, projection, virtual monitors.

#include <array>

#include "display/path_rotation.h"
#include "display/projection_mode.h"
#include "display/virtual_monitor.h"
#include "os/displays.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;

constexpr MonitorKey kKey = kCPanelModel;

TEST(PathRotation, IsThatOfThePathCarryingTheKeyAsOneOfItsParts) {
  Laptop laptop;
  using Case = std::pair<const wchar_t*, std::uint32_t>;
  for (const auto& [key, rotation] : {Case{L"tsb8888", 4},
                                      {L"BOE0D53", 1},
                                      {L"TSB888", 0},
                                      {L"SB8888", 0},
                                      {L"TSB8888#", 0},
                                      {L"", 0},
                                      {L"TSB8888#4&1B1F3FD7&0&UID8392784", 4}}) {
    EXPECT_EQ(GetMonitorRotation({key}), rotation) << testing::PrintToString(key);
  }
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888#4&1#{e6f07b5f}";
  EXPECT_EQ(GetMonitorRotation(kKey), 4U);
  laptop.displays.cPanel().devicePath = L"\\\\?\\DISPLAY##4&1#{E6F07B5F}";
  EXPECT_EQ(GetMonitorRotation({L""}), 0U) << "no key carries nothing, not even between two separators";
}

TEST(PathRotation, IsReadFromUsablePathsOnly) {
  using Case = std::tuple<const char*, void (*)(Screen&), bool>;
  for (const auto& [story, change, usable] :
       {Case{"detached", [](Screen& s) { s.Detach(); }, false},
        {"no path flag", [](Screen& s) { s.pathFlags = 8; }, false},
        {"not in use", [](Screen& s) { s.targetStatusFlags = 0; }, false},
        {"active and something else", [](Screen& s) { s.pathFlags = 1 | 8; }, true},
        {"any status", [](Screen& s) { s.targetStatusFlags = 0x80; }, true},
        {"without an area", [](Screen& s) { s.LoseDesktopArea(); }, true}}) {
    SCOPED_TRACE(story);
    Laptop laptop;
    change(laptop.displays.cPanel());
    EXPECT_EQ(GetMonitorRotation(kKey), usable ? 4U : 0U);
    EXPECT_EQ(SetMonitorEx(kKey), usable ? 0 : -1);
    EXPECT_EQ(laptop.displays.ConfigurationChanges().size(), usable ? 1U : 0U);
  }
}

TEST(PathRotation, IsSetTo270DegreesByAChangeOfTheWholeConfiguration) {
  Laptop laptop;
  laptop.displays.cPanel().Rotate(0);
  EXPECT_EQ(SetMonitorEx(kKey), 0);
  EXPECT_EQ(laptop.displays.cPanel().orientation, 3U);
  ASSERT_EQ(laptop.displays.ConfigurationChanges().size(), 1U);
  const auto& change = laptop.displays.ConfigurationChanges()[0];
  EXPECT_EQ(change.flags, 0x6A0U);
  ASSERT_EQ(change.paths.size(), 2U);
  EXPECT_EQ(change.paths[0].target.rotation, 1U);
  EXPECT_EQ(change.modes.size(), 4U);
}

TEST(PathRotation, ChangesEachPathThatCarriesTheKeyAndReturnsTheLastResult) {
  Laptop laptop;
  auto& second = laptop.displays.AddMonitor({.instanceId = L"DISPLAY\\TSB8888\\5&9"});
  laptop.displays.cPanel().Rotate(1);
  second.Rotate(2);
  EXPECT_EQ(GetMonitorRotation(kKey), 3U) << "of several paths the last one counts";
  laptop.faults.Fail<&os::ChangeDisplayConfiguration>({.error = 1610, .times = 1});
  EXPECT_EQ(SetMonitorEx(kKey), 0) << "the first change was refused, the last one not";
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplayConfiguration>(), 2U);
  EXPECT_EQ(laptop.displays.cPanel().orientation, 3U) << "the second change carried the first one too";
  EXPECT_EQ(second.orientation, 3U);
  laptop.faults.Fail<&os::ChangeDisplayConfiguration>({.error = 1610});
  EXPECT_EQ(SetMonitorEx(kKey), 1610);
  laptop.faults.Fail<&os::QueryDisplayConfiguration>();
  EXPECT_EQ(SetMonitorEx(kKey), -1) << "no path to change";
  EXPECT_EQ(GetMonitorRotation(kKey), 0U);
}

TEST(ProjectionMode, IsOneOfFourOrNone) {
  using Flags = std::array<bool, 4>;
  const std::pair<Topology, Flags> cases[] = {{Topology::Internal, {true}},
                                              {Topology::Clone, {false, true}},
                                              {Topology::Extend, {false, false, true}},
                                              {Topology::External, {false, false, false, true}},
                                              {Topology::None, {}},
                                              {static_cast<Topology>(16), {}}};
  const auto query = [] {
    tessaview::QueryWinPMode();
    return Flags{tessaview::isInternalMode(), tessaview::isCloneMode(), tessaview::isExtendMode(),
                 tessaview::isExternalMode()};
  };
  Laptop laptop;
  for (const auto& [topology, flags] : cases) {
    laptop.displays.topology = topology;
    EXPECT_EQ(query(), flags) << static_cast<int>(topology);
  }
  laptop.displays.topology = Topology::Extend;
  laptop.faults.Fail<&os::QueryDisplayConfiguration>();
  EXPECT_EQ(query(), Flags{}) << "none when it cannot be read";
}

TEST(VirtualMonitor, HasNoPathOrOneOfTheOldKind) {
  using Case = std::pair<Texts, bool>;
  const std::wstring real = L"\\\\?\\DISPLAY#BOE0D53#4&1", lagacy = L"\\\\?\\DISPLAY#lagacy#1";
  for (const auto& [paths, found] : {Case{{}, false},
                                     {{real, real}, false},
                                     {{real, L"", real}, true},
                                     {{real, lagacy}, true},
                                     {{lagacy, real}, true},
                                     {{L"\\\\?\\DISPLAY#legacy#1", L"\\\\?\\DISPLAY#LAGACY#1"}, false}}) {
    SCOPED_TRACE(testing::PrintToString(paths));
    Laptop laptop;
    laptop.displays.wallpaperPaths = paths;
    EXPECT_EQ(tessaview::CheckVirtualMonitor(), found);
    laptop.faults.Fail<&os::WallpaperMonitorPaths>();
    EXPECT_FALSE(tessaview::CheckVirtualMonitor()) << "without the wallpaper object";
  }
}

}  // namespace

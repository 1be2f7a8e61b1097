// Reading and changing the display configuration: rotation of paths, projection, virtual monitors.

#include <gtest/gtest.h>

#include <array>

#include "display/path_rotation.h"
#include "display/projection_mode.h"
#include "display/virtual_monitor.h"
#include "os/displays.h"
#include "tests/support.h"

namespace {

using os::Topology;
using sim::Laptop;
using sim::Screen;
using tessaview::CheckVirtualMonitor;
using tessaview::GetMonitorRotation;
using tessaview::SetMonitorEx;
using Texts = std::vector<std::wstring>;

constexpr auto kKey = L"TSB8888";

// ---- Rotation of the paths that carry a key ----

TEST(PathRotation, IsThatOfThePathCarryingTheKeyAsOneOfItsParts) {
  Laptop laptop;
  struct Case {
    const wchar_t* key;
    std::uint32_t rotation;
  };
  for (const auto& c : {Case{L"TSB8888", 4},
                        {L"tsb8888", 4},
                        {L"BOE0D53", 1},
                        {L"TSB888", 0},
                        {L"SB8888", 0},
                        {L"TSB8888#", 0},
                        {L"TSB8889", 0},
                        {L"", 0},
                        {L"\\\\?\\DISPLAY", 0},
                        {L"TSB8888#4&1B1F3FD7&0&UID8392784", 4}}) {
    EXPECT_EQ(GetMonitorRotation(c.key), c.rotation) << testing::PrintToString(c.key);
  }
  laptop.displays.cPanel().devicePath = L"\\\\?\\display#tsb8888#4&1#{e6f07b5f}";
  EXPECT_EQ(GetMonitorRotation(kKey), 4U);
  laptop.displays.cPanel().devicePath = L"\\\\?\\DISPLAY##4&1#{E6F07B5F}";
  EXPECT_EQ(GetMonitorRotation(L""), 0U) << "no key carries nothing, not even between two separators";
}

TEST(PathRotation, IsReadFromUsablePathsOnly) {
  struct Case {
    const char* story;
    void (*change)(Screen& screen);
    std::uint32_t rotation;
    std::int32_t changed;
  };
  for (const auto& c : {Case{"detached", [](Screen& s) { s.Detach(); }, 0, -1},
                        {"no path flag", [](Screen& s) { s.pathFlags = 8; }, 0, -1},
                        {"not in use", [](Screen& s) { s.targetStatusFlags = 0; }, 0, -1},
                        {"not available", [](Screen& s) { s.targetAvailable = false; }, 0, -1},
                        {"active and something else", [](Screen& s) { s.pathFlags = 1 | 8; }, 4, 0},
                        {"any status", [](Screen& s) { s.targetStatusFlags = 0x80; }, 4, 0},
                        {"without an area", [](Screen& s) { s.LoseDesktopArea(); }, 4, 0}}) {
    SCOPED_TRACE(c.story);
    Laptop laptop;
    c.change(laptop.displays.cPanel());
    EXPECT_EQ(GetMonitorRotation(kKey), c.rotation);
    EXPECT_EQ(SetMonitorEx(kKey), c.changed);
    EXPECT_EQ(laptop.displays.ConfigurationChanges().size(), c.changed == 0 ? 1U : 0U);
  }
}

TEST(PathRotation, IsSetTo270DegreesByAChangeOfTheWholeConfiguration) {
  Laptop laptop;
  laptop.displays.cPanel().Rotate(0);
  EXPECT_EQ(SetMonitorEx(kKey), 0);
  EXPECT_EQ(laptop.displays.cPanel().orientation, 3U);
  EXPECT_EQ(laptop.displays.bPanel().orientation, 0U);
  EXPECT_TRUE(laptop.displays.bPanel().attached);

  ASSERT_EQ(laptop.displays.ConfigurationChanges().size(), 1U);
  const auto& change = laptop.displays.ConfigurationChanges()[0];
  EXPECT_EQ(change.flags, 0x6A0U);
  ASSERT_EQ(change.paths.size(), 2U);
  EXPECT_EQ(change.paths[0].target.rotation, 1U);
  EXPECT_EQ(change.paths[1].target.rotation, 4U);
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
}

TEST(PathRotation, ChangesNothingWithoutAPathToChange) {
  Laptop laptop;
  EXPECT_EQ(SetMonitorEx(L"TSB9999"), -1);
  EXPECT_EQ(SetMonitorEx(L""), -1);
  laptop.faults.Fail<&os::QueryDisplayConfiguration>();
  EXPECT_EQ(SetMonitorEx(kKey), -1);
  EXPECT_EQ(GetMonitorRotation(kKey), 0U);
  EXPECT_EQ(laptop.faults.Calls<&os::ChangeDisplayConfiguration>(), 0U);
}

// ---- Projection ----

TEST(ProjectionMode, IsOneOfFourOrNone) {
  using Flags = std::array<bool, 4>;
  struct Case {
    Topology topology;
    Flags flags;  // internal, clone, extend, external
    Texts lines;
  };
  const Case cases[] = {
      {Topology::Internal, {true}, {L"Win + P = INTERNAL Mode (PC screen only) \n"}},
      {Topology::Clone, {false, true}, {L"Win + P = CLONE Mode (Duplicate) \n"}},
      {Topology::Extend, {false, false, true}, {L"Win + P = EXTEND Mode (Extend) \n"}},
      {Topology::External, {false, false, false, true}, {L"Win + P = EXTERNAL Mode (Second screen only) \n"}},
      {Topology::None, {}, {}},
      {static_cast<Topology>(16), {}, {}}};
  const auto query = [] {
    tessaview::QueryWinPMode();
    return Flags{tessaview::isInternalMode.get(), tessaview::isCloneMode.get(), tessaview::isExtendMode.get(),
                 tessaview::isExternalMode.get()};
  };
  Laptop laptop;
  for (const auto& before : cases) {
    for (const auto& c : cases) {
      SCOPED_TRACE(static_cast<int>(c.topology));
      laptop.displays.topology = before.topology;
      query();
      laptop.trace.Clear();
      laptop.displays.topology = c.topology;
      EXPECT_EQ(query(), c.flags);
      EXPECT_EQ(laptop.trace.Lines(), c.lines);
    }
  }
  laptop.displays.topology = Topology::Extend;
  query();
  laptop.faults.Fail<&os::QueryDisplayConfiguration>();
  EXPECT_EQ(query(), Flags{}) << "none when it cannot be read";
}

// ---- Virtual monitors ----

TEST(VirtualMonitor, HasNoPathOrOneOfTheOldKind) {
  struct Case {
    Texts paths;
    bool found;
    std::size_t seen;  // paths looked at
  };
  const std::wstring real = L"\\\\?\\DISPLAY#BOE0D53#4&1", lagacy = L"\\\\?\\DISPLAY#lagacy#1";
  for (const auto& c : {Case{{}, false, 0},
                        {{real}, false, 1},
                        {{real, real}, false, 2},
                        {{real, L"", real}, true, 2},
                        {{L""}, true, 1},
                        {{real, lagacy}, true, 2},
                        {{lagacy, real}, true, 1},
                        {{L"\\\\?\\DISPLAY#legacy#1", L"\\\\?\\DISPLAY#LAGACY#1"}, false, 2}}) {
    Laptop laptop;
    laptop.displays.wallpaperPaths = c.paths;
    EXPECT_EQ(CheckVirtualMonitor(), c.found);
    Texts lines{L"[CheckVirtualMonitor] monitor count=" + std::to_wstring(c.paths.size()) + L"\n"};
    for (std::size_t i = 0; i < c.seen; ++i) {
      lines.push_back(L"[CheckVirtualMonitor] monitor device path=" + c.paths[i] + L"\n");
    }
    EXPECT_EQ(laptop.trace.Lines(), lines);
    laptop.faults.Fail<&os::WallpaperMonitorPaths>();
    EXPECT_FALSE(CheckVirtualMonitor()) << "without the wallpaper object";
  }
}

}  // namespace

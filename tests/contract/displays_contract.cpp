#include <algorithm>
#include <set>

#include "os/displays.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using DisplayContract = Contract;
using os::DisplayQuery;

TEST_F(DisplayContract, TheDesktopHasThePrimaryPanelAndTheOneBelow) {
  const auto monitors = os::DesktopMonitors();
  ASSERT_EQ(monitors.size(), 2U);
  const auto& b = monitors[monitors[0].flags == 1 ? 0 : 1];
  const auto& c = monitors[monitors[0].flags == 1 ? 1 : 0];
  EXPECT_EQ(b.monitor, (os::Rect{0, 0, 1920, 1080}));
  EXPECT_EQ(c.monitor, (os::Rect{0, 1080, 1920, 1595})) << "a lying picture: its right and bottom are exclusive";
  EXPECT_EQ(c.flags, 0U);
  for (const auto& each : {b, c}) {
    EXPECT_EQ(os::MonitorDpi(each.handle), 96U);
    const auto settings = os::CurrentDisplaySettings(each.device);
    ASSERT_TRUE(settings);
    EXPECT_EQ((os::Point{settings->x, settings->y}), (os::Point{each.monitor.left, each.monitor.top}));
    EXPECT_EQ(settings->width, 1920U);
    EXPECT_EQ(settings->orientation, each.flags == 1 ? 0U : 3U);
    constexpr auto kTold =
        os::kDmPosition | os::kDmDisplayOrientation | os::kDmPelsWidth | os::kDmPelsHeight | os::kDmDisplayFrequency;
    EXPECT_EQ(settings->fields & kTold, kTold);
  }
  EXPECT_EQ(os::MonitorDpi(os::MonitorHandle::None), 96U);
  EXPECT_EQ(os::CurrentDisplaySettings(L"\\\\.\\DISPLAY77"), std::nullopt);
  EXPECT_EQ(os::ChangeDisplaySettings(L"\\\\.\\DISPLAY77", {.fields = os::kDmPosition}, 0), -5)
      << "DISP_CHANGE_BADPARAM";
}

TEST_F(DisplayContract, AnActivePathJoinsASourceAndATarget) {
  std::set<std::wstring> outputs;
  for (std::uint32_t i = 0; const auto name = os::DisplayDeviceName(i); ++i) outputs.insert(*name);
  EXPECT_GE(outputs.size(), 2U);
  const auto active = os::QueryDisplayConfiguration(DisplayQuery::OnlyActivePaths, DisplayQuery::OnlyActivePaths);
  ASSERT_TRUE(active);
  ASSERT_EQ(active->paths.size(), 2U);
  EXPECT_EQ(active->modes.size(), 4U);
  EXPECT_EQ(active->topology, os::Topology::None);
  const auto current = os::QueryDisplayConfiguration(DisplayQuery::DatabaseCurrent, DisplayQuery::DatabaseCurrent);
  ASSERT_TRUE(current);
  EXPECT_NE(current->topology, os::Topology::None) << "told by the database only";
  std::set<std::wstring> sources, targets;
  for (const auto& path : active->paths) {
    EXPECT_TRUE((path.flags & os::kPathActive) != 0 && path.target.available);
    EXPECT_LT(path.source.modeIndex, active->modes.size());
    sources.insert(os::SourceGdiName(path));
    const auto target = os::QueryTargetName(path);
    EXPECT_TRUE(target.monitorDevicePath.starts_with(L"\\\\?\\DISPLAY#"));
    targets.insert(target.monitorDevicePath);
    const auto settings = os::CurrentDisplaySettings(os::SourceGdiName(path));
    ASSERT_TRUE(settings);
    EXPECT_EQ(path.target.rotation, settings->orientation + 1);
  }
  EXPECT_EQ(sources.size(), 2U);
  EXPECT_TRUE(std::includes(outputs.begin(), outputs.end(), sources.begin(), sources.end()));
  EXPECT_EQ(targets.size(), 2U);

  auto unknown = active->paths[0];
  unknown.source.id = unknown.target.id = 0x7777;
  EXPECT_EQ(os::SourceGdiName(unknown), L"");
  EXPECT_EQ(os::QueryTargetName(unknown).monitorDevicePath, L"");
}

TEST_F(DisplayContract, EachMonitorDeviceHasItsPlaceInTheTree) {
  const auto devices = os::MonitorDevices();
  ASSERT_EQ(devices.size(), 2U);
  for (const auto& device : devices) {
    EXPECT_TRUE(device.instanceId.starts_with(L"DISPLAY\\")) << testing::PrintToString(device.instanceId);
    const auto path = device.devicePath.substr(0, 12);  // "DISPLAY" in capitals or not, as the system likes
    EXPECT_TRUE(path == L"\\\\?\\DISPLAY#" || path == L"\\\\?\\display#") << testing::PrintToString(path);
  }
  EXPECT_NE(devices[0].devicePath, devices[1].devicePath);
}

}  // namespace
}  // namespace contract

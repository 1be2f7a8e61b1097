#include <algorithm>
#include <set>

#include "tests/contract/world.h"

namespace {

using DisplayContract = contract::Contract;
using os::DisplayQuery;

TEST_F(DisplayContract, TheDesktopHasThePrimaryPanelAndTheOneBelow) {
  const auto monitors = os::DesktopMonitors();
  ASSERT_EQ(monitors.size(), 2U);
  EXPECT_EQ(monitors[0].flags + monitors[1].flags, 1U) << "one is the primary";
  for (const auto& each : monitors) {
    const bool isB = each.flags == 1;  // else a lying picture; right and bottom are exclusive
    EXPECT_EQ(each.monitor, isB ? (os::Rect{0, 0, 1920, 1080}) : (os::Rect{0, 1080, 1920, 1595}));
    EXPECT_EQ(os::MonitorDpi(each.handle), 96U);
    const auto settings = os::CurrentDisplaySettings(each.device);
    ASSERT_TRUE(settings);
    EXPECT_EQ((os::Point{settings->x, settings->y}), (os::Point{each.monitor.left, each.monitor.top}));
    EXPECT_TRUE(settings->width == 1920 && settings->orientation == (isB ? 0U : 3U));
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
  const auto active = os::QueryDisplayConfiguration(DisplayQuery::OnlyActivePaths, DisplayQuery::OnlyActivePaths);
  ASSERT_TRUE(active && active->paths.size() == 2 && active->modes.size() == 4);
  EXPECT_EQ(active->topology, os::Topology::None);
  const auto current = os::QueryDisplayConfiguration(DisplayQuery::DatabaseCurrent, DisplayQuery::DatabaseCurrent);
  EXPECT_TRUE(current && current->topology != os::Topology::None) << "told by the database only";
  std::set<std::wstring> sources, targets;
  for (const auto& path : active->paths) {
    EXPECT_TRUE((path.flags & os::kPathActive) != 0 && path.target.available);
    EXPECT_LT(path.source.modeIndex, active->modes.size());
    sources.insert(os::SourceGdiName(path));
    const auto target = os::QueryTargetName(path).monitorDevicePath;
    EXPECT_TRUE(target.starts_with(L"\\\\?\\DISPLAY#"));
    targets.insert(target);
    const auto settings = os::CurrentDisplaySettings(os::SourceGdiName(path));
    EXPECT_TRUE(settings && path.target.rotation == settings->orientation + 1);
  }
  EXPECT_TRUE(sources.size() == 2 && targets.size() == 2);
  EXPECT_TRUE(std::includes(outputs.begin(), outputs.end(), sources.begin(), sources.end()));
  auto unknown = active->paths[0];
  unknown.source.id = unknown.target.id = 0x7777;
  EXPECT_EQ(os::SourceGdiName(unknown) + os::QueryTargetName(unknown).monitorDevicePath, L"");
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
  EXPECT_EQ(os::FromAnsi(os::Bytes{'n', 0xE9, 0x80}), L"n\u00E9\u20AC") << "in the western European code page";
  EXPECT_GT(os::PresentDeviceClasses().size(), devices.size()) << "also one whose class cannot be read";
}

}  // namespace

#include "os/displays.h"
#include "sim/bytes.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine;

constexpr std::size_t kLongestMonitorPath = 127, kLongestFriendlyName = 63;

/// The one monitor of a session that does not reach the laptop's own.
const Monitor& ForeignMonitor() {
  static const Monitor monitor{
      static_cast<MonitorHandle>(0x7FFF1), {0, 0, 1024, 768}, {0, 0, 1024, 768}, 1, L"WinDisc"};
  return monitor;
}

}  // namespace

Result<DisplayConfiguration> QueryDisplayConfiguration(DisplayQuery sizes, DisplayQuery query) {
  const auto call = sim::Enter<&QueryDisplayConfiguration>();
  if (call.failed()) return Error{call.error()};
  if (!Machine().sessions.ReachesDisplays()) return Error{sim::kAccessDenied};
  const auto& displays = Machine().displays;
  const auto room = displays.Paths(sizes != DisplayQuery::AllPaths).size();
  DisplayConfiguration configuration;
  configuration.paths = displays.Paths(query != DisplayQuery::AllPaths);
  configuration.modes = displays.Modes();
  if (configuration.paths.size() > room) return Error{sim::kInsufficientBuffer};
  configuration.paths.resize(call.Shortened(configuration.paths.size()));
  if (query == DisplayQuery::DatabaseCurrent) configuration.topology = displays.topology;
  return configuration;
}

std::int32_t ChangeDisplayConfiguration(const std::vector<DisplayPath>& paths, const std::vector<DisplayMode>& modes,
                                        std::uint32_t flags) {
  const auto call = sim::Enter<&ChangeDisplayConfiguration>();
  if (call.failed()) return static_cast<std::int32_t>(call.error());
  if (!Machine().sessions.ReachesDisplays()) return sim::kAccessDenied;
  return Machine().displays.ChangeConfiguration(paths, modes, flags);
}

std::wstring SourceGdiName(const DisplayPath& path) {
  if (sim::Enter<&SourceGdiName>().failed()) return {};
  const auto* screen = Machine().displays.FindSource(path);
  return screen == nullptr ? std::wstring() : screen->gdiName;
}

TargetName QueryTargetName(const DisplayPath& path) {
  if (sim::Enter<&QueryTargetName>().failed()) return {};
  const auto* screen = Machine().displays.FindTarget(path);
  if (screen == nullptr) return {};
  TargetName name{.monitorDevicePath = screen->devicePath.substr(0, kLongestMonitorPath),
                  .friendlyName = screen->friendlyName.substr(0, kLongestFriendlyName)};
  if (screen->edid.size() >= 12) {
    name.edidManufactureId = sim::GetShort(screen->edid, 8);
    name.edidProductCode = sim::GetShort(screen->edid, 10);
  }
  return name;
}

std::vector<Monitor> DesktopMonitors() {
  const auto call = sim::Enter<&DesktopMonitors>();
  if (call.failed()) return {};
  if (!Machine().sessions.ReachesDisplays()) return {ForeignMonitor()};
  auto monitors = Machine().desktop.Monitors();
  monitors.resize(call.Shortened(monitors.size()));
  return monitors;
}

std::uint32_t MonitorDpi(MonitorHandle monitor) {
  constexpr std::uint32_t kUnknown = 96;
  return sim::Enter<&MonitorDpi>().failed() ? kUnknown : Machine().desktop.DpiOf(monitor);
}

std::optional<std::wstring> DisplayDeviceName(std::uint32_t index) {
  const auto call = sim::Enter<&DisplayDeviceName>();
  const auto& screens = Machine().displays.Screens();
  if (call.failed() || index >= screens.size()) return std::nullopt;
  if (!Machine().sessions.ReachesDisplays()) return index == 0 ? std::optional(ForeignMonitor().device) : std::nullopt;
  return screens[index].gdiName;
}

std::optional<DisplaySettings> CurrentDisplaySettings(const std::wstring& gdiName) {
  if (sim::Enter<&CurrentDisplaySettings>().failed()) return std::nullopt;
  if (!Machine().sessions.ReachesDisplays()) return std::nullopt;
  const auto* screen = Machine().displays.FindGdiName(gdiName);
  if (screen == nullptr) return std::nullopt;
  if (!Machine().displays.MirrorsFirst(*screen)) return screen->Settings();
  return DisplaySettings{.fields = screen->Settings().fields};
}

std::int32_t ChangeDisplaySettings(const std::wstring& gdiName, const DisplaySettings& settings, std::uint32_t flags) {
  constexpr std::int32_t kFailed = -1;  // DISP_CHANGE_FAILED
  if (sim::Enter<&ChangeDisplaySettings>().failed() || !Machine().sessions.ReachesDisplays()) return kFailed;
  return Machine().displays.ChangeSettings(gdiName, settings, flags);
}

std::vector<MonitorDevice> MonitorDevices() {
  const auto call = sim::Enter<&MonitorDevices>();
  if (call.failed()) return {};
  std::vector<MonitorDevice> devices;
  for (const auto& screen : Machine().displays.Screens()) {
    if (!screen.plugged) continue;
    devices.push_back(
        {screen.instanceId, screen.devicePath, screen.adapterInstanceId, screen.busNumber, screen.address});
  }
  devices.resize(call.Shortened(devices.size()));
  return devices;
}

std::optional<std::vector<std::wstring>> WallpaperMonitorPaths() {
  if (sim::Enter<&WallpaperMonitorPaths>().failed()) return std::nullopt;
  const auto& displays = Machine().displays;
  if (displays.wallpaperPaths) return *displays.wallpaperPaths;
  std::vector<std::wstring> paths;
  for (const auto& screen : displays.Screens()) {
    if (screen.OnDesktop()) paths.push_back(screen.devicePath);
  }
  return paths;
}

}  // namespace os

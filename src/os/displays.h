#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"

namespace os {

/// A display adapter's id (LUID).
struct AdapterId {
  std::uint32_t low = 0;
  std::int32_t high = 0;
  friend bool operator==(const AdapterId&, const AdapterId&) = default;
};

/// One display path, field by field (DISPLAYCONFIG_PATH_INFO).
struct DisplayPath {
  struct Source {
    AdapterId adapter;
    std::uint32_t id = 0, modeIndex = 0, statusFlags = 0;
  } source;
  struct Target {
    AdapterId adapter;
    std::uint32_t id = 0, modeIndex = 0;
    std::int32_t outputTechnology = 0;  // DISPLAYCONFIG_VIDEO_OUTPUT_TECHNOLOGY
    std::uint32_t rotation = 0;         // DISPLAYCONFIG_ROTATION: 1 none, 2 by 90, 3 by 180, 4 by 270 degrees
    std::uint32_t scaling = 0;
    std::uint32_t refreshNumerator = 0, refreshDenominator = 0;
    std::uint32_t scanLineOrdering = 0;
    bool available = false;
    std::uint32_t statusFlags = 0;
  } target;
  std::uint32_t flags = 0;
};

inline constexpr std::uint32_t kPathActive = 1;   // DISPLAYCONFIG_PATH_ACTIVE
inline constexpr std::uint32_t kRotation270 = 4;  // DISPLAYCONFIG_ROTATION_ROTATE270

/// One display mode record, carried unread from a query to a change (DISPLAYCONFIG_MODE_INFO, 64 bytes).
using DisplayMode = std::array<std::uint8_t, 64>;

/// The projection the user chose, as the configuration database names it (DISPLAYCONFIG_TOPOLOGY_ID).
enum class Topology : std::uint32_t { None = 0, Internal = 1, Clone = 2, Extend = 4, External = 8 };

/// Which paths to ask for (QDC_*).
enum class DisplayQuery : std::uint32_t { AllPaths = 1, OnlyActivePaths = 2, DatabaseCurrent = 4 };

struct DisplayConfiguration {
  std::vector<DisplayPath> paths;
  std::vector<DisplayMode> modes;
  Topology topology = Topology::None;  // told by DatabaseCurrent only
};

/// Reads the display configuration once: buffer sizes for `sizes`, then the data for `query`
/// (GetDisplayConfigBufferSizes, QueryDisplayConfig). Fails with kInsufficientBuffer when it grew in between. Any
/// thread; milliseconds.
[[nodiscard]] Result<DisplayConfiguration> QueryDisplayConfiguration(DisplayQuery sizes, DisplayQuery query);

/// Flags of a configuration change (SDC_*).
inline constexpr std::uint32_t kSdcTopologyExtend = 0x4, kSdcUseSuppliedConfig = 0x20, kSdcApply = 0x80,
                               kSdcSaveToDatabase = 0x200, kSdcAllowChanges = 0x400;

/// Changes the display configuration (SetDisplayConfig); empty spans pass null arrays. Returns 0 or a system error
/// code. Any thread; can take seconds, and display-change notifications follow.
std::int32_t ChangeDisplayConfiguration(const std::vector<DisplayPath>& paths, const std::vector<DisplayMode>& modes,
                                        std::uint32_t flags);

/// The GDI name of a path's source, such as "\\.\DISPLAY1" (DisplayConfigGetDeviceInfo, GET_SOURCE_NAME); empty when
/// the system does not know it. Any thread.
[[nodiscard]] std::wstring SourceGdiName(const DisplayPath& path);

/// What the system calls a path's target (DISPLAYCONFIG_TARGET_DEVICE_NAME).
struct TargetName {
  std::wstring monitorDevicePath;  // at most 127 characters
  std::wstring friendlyName;       // at most 63 characters
  std::uint16_t edidManufactureId = 0, edidProductCode = 0;
};

/// Names of a path's target (DisplayConfigGetDeviceInfo, GET_TARGET_NAME); all empty when the system does not know
/// it. Any thread.
[[nodiscard]] TargetName QueryTargetName(const DisplayPath& path);

/// One monitor of the desktop (MONITORINFOEXW).
struct Monitor {
  MonitorHandle handle = MonitorHandle::None;
  Rect monitor, work;
  std::uint32_t flags = 0;  // 1 = primary
  std::wstring device;      // the GDI device name, at most 31 characters
};

/// The monitors of the desktop in the system's order (EnumDisplayMonitors, GetMonitorInfoW). Any thread.
[[nodiscard]] std::vector<Monitor> DesktopMonitors();

/// A monitor's effective horizontal resolution in dots per inch; 96 is a scale of 1.0 (GetDpiForMonitor,
/// MDT_EFFECTIVE_DPI). 96 when the system cannot tell. Any thread.
[[nodiscard]] std::uint32_t MonitorDpi(MonitorHandle monitor);

/// The name of the index-th display adapter output (EnumDisplayDevicesW with no device name); empty past the last.
[[nodiscard]] std::optional<std::wstring> DisplayDeviceName(std::uint32_t index);

/// A display's settings (DEVMODEW, display fields). `fields` is a mask of the kDm values: after a read what the system
/// told, before a change what shall be changed.
struct DisplaySettings {
  std::uint32_t fields = 0;
  std::int32_t x = 0, y = 0;
  std::uint32_t width = 0, height = 0;
  std::uint32_t orientation = 0;  // 0 default, 1 by 90, 2 by 180, 3 by 270 degrees
  std::uint32_t frequency = 0;    // Hz
  std::uint32_t bitsPerPixel = 0, displayFlags = 0;
  std::uint32_t fixedOutput = 0;  // how a smaller picture is shown: 0 default, 1 stretched, 2 centred
};
inline constexpr std::uint32_t kDmPosition = 0x20, kDmDisplayOrientation = 0x80, kDmBitsPerPel = 0x40000,
                               kDmPelsWidth = 0x80000, kDmPelsHeight = 0x100000, kDmDisplayFlags = 0x200000,
                               kDmDisplayFrequency = 0x400000, kDmDisplayFixedOutput = 0x20000000;

/// A display's current settings (EnumDisplaySettingsW, ENUM_CURRENT_SETTINGS, dmSize 220). Any thread.
[[nodiscard]] std::optional<DisplaySettings> CurrentDisplaySettings(const std::wstring& gdiName);

inline constexpr std::uint32_t kCdsUpdateRegistry = 1, kCdsGlobal = 8;
inline constexpr std::int32_t kDisplayChangeSuccessful = 0;  // DISP_CHANGE_SUCCESSFUL

/// Changes one display (ChangeDisplaySettingsExW, dmSize 220, no window, no parameter); `flags` are the kCds values.
/// Returns DISP_CHANGE_SUCCESSFUL (0) or one of the other DISP_CHANGE values. Any thread; can take seconds.
std::int32_t ChangeDisplaySettings(const std::wstring& gdiName, const DisplaySettings& settings, std::uint32_t flags);

/// One present monitor device and its place in the device tree.
struct MonitorDevice {
  std::wstring instanceId;         // "DISPLAY\TSB8888\4&1b1f3fd7&0&UID8388688"
  std::wstring devicePath;         // of its monitor interface: "\\?\DISPLAY#TSB8888#…"
  std::wstring adapterInstanceId;  // of the parent device; empty when it has none
  std::uint32_t busNumber = 0;     // CM_DRP_BUSNUMBER; 0 when unknown
  std::uint32_t address = 0;       // CM_DRP_ADDRESS; 0 when unknown
};

/// The present devices of the monitor interface class, in the system's order (SetupDiGetClassDevsW with DIGCF_PRESENT |
/// DIGCF_DEVICEINTERFACE, SetupDiEnumDeviceInterfaces, CM_Get_Device_IDW, CM_Get_Parent). Any thread; milliseconds.
[[nodiscard]] std::vector<MonitorDevice> MonitorDevices();

/// The monitor paths of the desktop-wallpaper object, in its order; a monitor that is not attached has an empty path
/// (CoInitializeEx, IDesktopWallpaper::GetMonitorDevicePathCount, GetMonitorDevicePathAt, CoUninitialize). Empty when
/// the object cannot be had or does not tell their count. Any thread; milliseconds.
[[nodiscard]] std::optional<std::vector<std::wstring>> WallpaperMonitorPaths();

}  // namespace os

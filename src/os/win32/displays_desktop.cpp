// Monitors of the desktop and the settings of single displays.
#include <windows.h>

#include <shellscalingapi.h>

#undef ChangeDisplaySettings  // the door has a function of this name

#include "os/displays.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

static_assert(sizeof(DEVMODEW) == 220 && sizeof(DISPLAY_DEVICEW) == 840);

Rect FromNative(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

BOOL CALLBACK AddMonitor(HMONITOR handle, HDC /*context*/, RECT* /*clip*/, LPARAM monitors) noexcept {
  MONITORINFOEXW info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(handle, &info);
  reinterpret_cast<std::vector<Monitor>*>(monitors)->push_back({win32::ToDoor<MonitorHandle>(handle),
                                                                FromNative(info.rcMonitor), FromNative(info.rcWork),
                                                                info.dwFlags, win32::TextOf(info.szDevice)});
  return TRUE;
}

// What DisplaySettings has a member for. Naming any other field in a change would write a zero for it.
constexpr DWORD kCarriedFields = kDmPosition | kDmDisplayOrientation | kDmBitsPerPel | kDmPelsWidth | kDmPelsHeight |
                                 kDmDisplayFlags | kDmDisplayFrequency | kDmDisplayFixedOutput;

DEVMODEW EmptyMode() {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  return mode;
}

}  // namespace

std::vector<Monitor> DesktopMonitors() {
  std::vector<Monitor> monitors;
  EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

std::uint32_t MonitorDpi(MonitorHandle monitor) {
  UINT horizontal = 0;
  UINT vertical = 0;
  const HRESULT result =
      GetDpiForMonitor(win32::ToNative<HMONITOR>(monitor), MDT_EFFECTIVE_DPI, &horizontal, &vertical);
  return SUCCEEDED(result) && horizontal != 0 ? horizontal : USER_DEFAULT_SCREEN_DPI;
}

std::optional<std::wstring> DisplayDeviceName(std::uint32_t index) {
  DISPLAY_DEVICEW device{};
  device.cb = sizeof device;
  if (EnumDisplayDevicesW(nullptr, index, &device, 0) == FALSE) return {};
  return win32::TextOf(device.DeviceName);
}

std::optional<DisplaySettings> CurrentDisplaySettings(const std::wstring& gdiName) {
  DEVMODEW mode = EmptyMode();
  if (EnumDisplaySettingsW(gdiName.c_str(), ENUM_CURRENT_SETTINGS, &mode) == FALSE) return {};
  return DisplaySettings{.fields = mode.dmFields & kCarriedFields,
                         .x = mode.dmPosition.x,
                         .y = mode.dmPosition.y,
                         .width = mode.dmPelsWidth,
                         .height = mode.dmPelsHeight,
                         .orientation = mode.dmDisplayOrientation,
                         .frequency = mode.dmDisplayFrequency,
                         .bitsPerPixel = mode.dmBitsPerPel,
                         .displayFlags = mode.dmDisplayFlags,
                         .fixedOutput = mode.dmDisplayFixedOutput};
}

std::int32_t ChangeDisplaySettings(const std::wstring& gdiName, const DisplaySettings& settings, std::uint32_t flags) {
  DEVMODEW mode = EmptyMode();
  mode.dmFields = settings.fields;
  mode.dmPosition = {settings.x, settings.y};
  mode.dmPelsWidth = settings.width;
  mode.dmPelsHeight = settings.height;
  mode.dmDisplayOrientation = settings.orientation;
  mode.dmDisplayFrequency = settings.frequency;
  mode.dmBitsPerPel = settings.bitsPerPixel;
  mode.dmDisplayFlags = settings.displayFlags;
  mode.dmDisplayFixedOutput = settings.fixedOutput;
  return ChangeDisplaySettingsExW(gdiName.c_str(), &mode, nullptr, flags, nullptr);
}

}  // namespace os

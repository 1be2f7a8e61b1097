#pragma once

#include <cstdint>
#include <string>

#include "os/types.h"

namespace tessaview {

/// A panel's place on the desktop, in pixels; all zero = the panel is absent.
struct PanelRect {
  std::int32_t X = 0, Y = 0, Width = 0, Height = 0;
  [[nodiscard]] bool HasArea() const { return Width != 0 && Height != 0; }
  friend bool operator==(const PanelRect&, const PanelRect&) = default;
};

/// What the last search found of one panel. Everything of a panel that was not found is zero or empty, but for the
/// hardware id it was looked for by.
struct PanelInfo {
  bool isFound = false;
  std::wstring gdiDeviceName;      // "\\.\DISPLAY1", at most 31 characters
  std::wstring monitorDevicePath;  // as reported, at most 127 characters
  std::wstring hardwareId;         // the factory's id, cut at its last backslash

  os::MonitorHandle monitor = os::MonitorHandle::None;

  // The settings view: what the display is set to (DEVMODEW).
  std::int32_t dmPositionX = 0, dmPositionY = 0, dmPelsWidth = 0, dmPelsHeight = 0;
  std::uint32_t displayFrequency = 0;    // Hz
  std::uint32_t displayOrientation = 0;  // 0 default, then 1, 2, 3 by 90 degrees each

  // The monitor view: position divided by the smallest scale of all monitors, size by the monitor's own.
  std::int32_t rcMonitorLeft = 0, rcMonitorTop = 0, rcMonitorWidth = 0, rcMonitorHeight = 0;
  float scale = 0;  // effective dots per inch / 96

  [[nodiscard]] PanelRect SettingsView() const { return {dmPositionX, dmPositionY, dmPelsWidth, dmPelsHeight}; }
};

/// What the last search found of both panels.
struct PanelDisplayInfo {
  PanelInfo bPanel, cPanel;
};

}  // namespace tessaview

#pragma once

#include <cstdint>
#include <string>

#include "os/displays.h"
#include "os/types.h"

namespace sim {

/// One display and its place on the desktop. A test may change any field; the functions change what belongs together.
struct Screen {
  // What the display is.
  std::wstring instanceId = {};  // "DISPLAY\TSB8888\4&1b1f3fd7&0&UID8388688"
  std::wstring devicePath = {};  // of its monitor interface; made from the instance id when left empty
  std::wstring friendlyName = {};
  os::Bytes edid = {};                                    // none: the system could not read it
  std::uint32_t nativeWidth = 1920, nativeHeight = 1080;  // pixels, in orientation 0

  // How it is connected. The source is the adapter's side of the connection, the target the display's.
  std::wstring adapterInstanceId = L"PCI\\VEN_8086&DEV_9B41&SUBSYS_1E221043&REV_02\\3&11583659&0&10";
  os::AdapterId adapter = {0x0000C3A1, 0};
  std::uint32_t sourceId = 0, targetId = 0;  // numbered by Displays when left 0
  std::int32_t outputTechnology = 11;        // embedded display port
  std::uint32_t busNumber = 0, address = 0;
  std::wstring gdiName = {};  // "\\.\DISPLAY1"; given by Displays when left empty
  bool plugged = true;        // the device is there; an unplugged one is in no list
  bool targetAvailable = true;
  std::uint32_t targetStatusFlags = 1;  // in use
  std::uint32_t pathFlags = os::kPathActive;

  // Its part of the desktop. The size is that of the turned picture.
  bool attached = true;
  std::int32_t x = 0, y = 0;
  std::uint32_t width = 1920, height = 1080;
  std::uint32_t orientation = 0;  // 0 default, 1 by 90, 2 by 180, 3 by 270 degrees
  std::uint32_t rotation = 1;     // the same as its path tells it: 1 none … 4 by 270 degrees
  std::uint32_t frequency = 60;   // Hz
  std::uint32_t fixedOutput = 0;  // of a picture that is smaller than the display
  std::uint32_t dpi = 96;

  void Detach() { attached = false; }
  void Attach() { attached = true; }
  void Unplug() { plugged = false; }
  void Plug() { plugged = true; }
  void MoveTo(std::int32_t newX, std::int32_t newY) { x = newX, y = newY; }

  /// Turns the picture; a quarter turn exchanges width and height.
  void Rotate(std::uint32_t newOrientation);

  /// The display remains active on its path, and yet has no area on the desktop.
  void LoseDesktopArea() { width = height = 0; }

  [[nodiscard]] bool OnDesktop() const { return plugged && attached; }
  [[nodiscard]] bool HasArea() const { return OnDesktop() && width != 0 && height != 0; }
  [[nodiscard]] bool IsPrimary() const { return HasArea() && x == 0 && y == 0; }
  [[nodiscard]] os::Rect Area() const;

  /// What the system tells of its current settings; a detached display has no size.
  [[nodiscard]] os::DisplaySettings Settings() const;

  /// Changes what the mask names, or leaves all as it is. Returns a DISP_CHANGE value.
  std::int32_t Apply(const os::DisplaySettings& settings);
};

/// How much of two areas is the same, in pixels.
[[nodiscard]] std::int64_t Overlap(const os::Rect& a, const os::Rect& b);

}  // namespace sim

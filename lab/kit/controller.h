#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "kit/process.h"

namespace lab {

/// What the firmware's hot-key component posts.
enum class HotKey : WPARAM { F6Pressed = 0x6B, F6Ended = 0xF9, FlipChanged = 0xFA };

/// What F6Ended says should happen to the panel.
inline constexpr LPARAM kF6PanelOff = 2, kF6PanelOn = 3;

/// The program under test: the controller's own TessaviewService.exe, unmodified, with the import patch.
class Controller {
 public:
  /// Starts it from its folder. It serves messages only seconds later: see Laptop::WaitForController.
  bool Start();

  /// Its hidden window; null when there is none.
  [[nodiscard]] static HWND Window();

  /// Posts a notification of the hot-key component.
  static void PostHotKey(HotKey key, LPARAM lParam = 0);

  /// Presses F6 so many times; the end of the sequence says what should happen to the panel, kF6PanelOff or kF6PanelOn.
  static void PressF6(int times, LPARAM end);

  /// Posts the hot-key component's report whether the touch pad is enabled.
  static void PostTouchPadStatus(bool enabled);

  /// Delivers a power setting's new value, as Windows does (WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE), and waits until
  /// the controller has noted it. Wine takes the registrations and never notifies.
  static bool NotifyPowerSetting(const GUID& setting, std::uint32_t value);

  /// Its menu's Exit.
  static void Exit();

  /// Ends it by force, if it runs.
  void End() { process_.Kill(); }

  /// Open handles of its process; 0 when the system does not say.
  [[nodiscard]] std::uint32_t HandleCount() const { return process_.HandleCount(); }

  [[nodiscard]] bool IsRunning() const { return process_.IsRunning(); }
  [[nodiscard]] std::optional<std::uint32_t> WaitForExit() const { return process_.WaitForExit(); }

 private:
  ChildProcess process_;
};

/// Sends a window a message and waits until it is handled; false when it was not within 30 seconds.
bool Deliver(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// The folder that the controller is installed in, with a backslash at its end.
inline constexpr wchar_t kControllerFolder[] = L"C:\\Program Files\\NORV\\Tessaview\\";

/// The power settings that the controller listens to.
inline constexpr GUID kConsoleDisplayState{
    0x6FE69556, 0x704A, 0x47A0, {0x8F, 0x24, 0xC2, 0x8D, 0x93, 0x6F, 0xDA, 0x47}};
inline constexpr GUID kLidSwitchState{0xBA3E0F4D, 0xB817, 0x4094, {0xA2, 0xD1, 0xD5, 0x63, 0x79, 0xE6, 0xA0, 0xF3}};
inline constexpr GUID kPowerSavingStatus{0xE00958C0, 0xC213, 0x4ACE, {0xAC, 0x77, 0xFE, 0xCC, 0xED, 0x2E, 0xEE, 0xA5}};
inline constexpr GUID kAcDcPowerSource{0x5D3E9A59, 0xE9D5, 0x4B00, {0xA6, 0xBD, 0xFF, 0x34, 0xFF, 0x51, 0x65, 0x48}};
inline constexpr std::uint32_t kOnMains = 0, kOnBattery = 1;  // its values
inline constexpr GUID kLidCloseAction{0x5CA83367, 0x6E45, 0x459F, {0xA2, 0x7B, 0x47, 0x6B, 0x1D, 0x01, 0xC9, 0x36}};

}  // namespace lab

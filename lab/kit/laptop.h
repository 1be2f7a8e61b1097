#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "kit/controller.h"
#include "kit/firmware_driver.h"
#include "kit/journal.h"
#include "kit/stand_in_ui.h"
#include "kit/touch_controller.h"

namespace lab {

/// How the report begins that makes the touch pad's surface a plain touch pad, as the journal of its reports has it.
inline constexpr wchar_t kCursorReport[] = L"03 00 09 A1 00 00 0F 00 00 00 08 70";

/// The virtual laptop with everything that the controller meets on it, and a journal of what each part saw. Once booted
/// it must live as long as its process: threads of its own hear the laptop's programs.
class Laptop {
 public:
  /// Hears each line as it happens: whose journal it is in, and the line.
  using Listener = std::function<void(const std::wstring& who, const std::wstring& line)>;

  explicit Laptop(const Listener& listener);
  Laptop(const Laptop&) = delete;
  Laptop& operator=(const Laptop&) = delete;

  /// Installs the devices, writes the factory's ids and begins to listen. False when a device does not answer; which
  /// one is told to the listener.
  bool Boot();

  /// The laptop as after a boot, with nothing running on it: controller and UI gone, no settings file, factory
  /// registers and no faults in the firmware, both collections plugged in, on mains and extended. The journals are
  /// empty. False when a device does not answer, or another program of the lab still runs.
  bool Renew();

  /// The UI's process ends as by force, and the system tells of it. Other ends of it go untold.
  void KillUi();

  /// Waits until the controller's message loop has served everything posted to it so far, and what it asked of the
  /// devices is in their journals; false when it does not, or there is no window, within 30 seconds.
  bool WaitForController();

  /// Brings what was asked of the devices so far into their journals; by itself that happens every 20 ms.
  void ReadDevices();

  FirmwareDriver firmware;
  TouchController touch;
  StandInUi ui;
  Controller controller;

  Journal trace;     // the controller's trace lines
  Journal usage;     // its usage events
  Journal uiTalk;    // "received POWERON", "sent BLGET", "activated …"
  Journal requests;  // to the firmware: "DEVS 0x00050031 = 0"
  Journal reports;   // output reports of the touch pad, the first 12 bytes in hexadecimal
  Journal patched;   // calls that the import patch acted on

 private:
  void SortIn(const std::wstring& line);

  Listener listener_;
  std::mutex devices_;  // guards the two numbers, and that what is read is in the journals before more is read
  std::uint32_t nextRequest_ = 0, nextReport_ = 0;
  std::atomic<int> tracing_ = 0, talking_ = 0;  // programs that are connected to the pipes
};

}  // namespace lab

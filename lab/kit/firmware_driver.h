#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "firmware/firmware_control.h"

namespace lab {

/// The firmware driver of the laptop, \\.\ZRVACPI: a kernel service of Wine. Any thread.
class FirmwareDriver {
 public:
  /// Makes the service of the driver file in the lab's folder and starts it; true when the device answers.
  bool Install();

  /// The driver goes (opening the device fails with error 2) and comes back with factory registers.
  bool Stop();
  bool Start();

  bool Set(std::uint32_t id, std::uint32_t value);

  /// What the register reads as; asked as the controller asks, so it stands in the journal too.
  std::uint32_t Read(std::uint32_t id);

  /// Requests for this id fail, or are answered with 0 to 3 bytes, until the next kNoFault.
  bool SetFault(std::uint32_t id, FirmwareFaultKind kind, std::uint32_t replyBytes = 0);

  /// Factory registers, no faults, an empty journal.
  bool Reset();

  /// The requests from number `next` on, oldest first; `next` moves behind them. It begins anew with a driver that did.
  [[nodiscard]] std::vector<FirmwareRecord> Requests(std::uint32_t& next) const;
};

/// "DEVS 0x00050031 = 0" or "DSTS 0x00050032 -> 116", and the fault met, if any.
[[nodiscard]] std::wstring Describe(const FirmwareRecord& request);

}  // namespace lab

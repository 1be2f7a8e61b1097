#pragma once

#include <cstdint>
#include <optional>

#include "os/device_io.h"

namespace tessaview {

/// What the firmware control device can read (DSTS) and set (DEVS).
enum class FirmwareId : std::uint32_t {
  PanelPower = 0x00050031,      // DEVS 0: off, never 1; DSTS: kPanelPresentAndOff, kPanelReady or anything else
  Backlight = 0x00050032,       // DEVS 10..255; DSTS: the level is the low byte
  Generation = 0x00050033,      // DSTS: bit 2 set on first-generation machines
  RefreshRate = 0x00050034,     // DEVS 1: 60 Hz, 0: 30 Hz
  LidCloseAction = 0x00050035,  // DEVS 0: closing the lid does nothing, 1: it does something
  FlipState = 0x00060062,       // DSTS: bit 0 set while the machine is folded over
};

inline constexpr std::uint32_t kPanelPresentAndOff = 0x00010000;
inline constexpr std::uint32_t kPanelReady = 0x000100A0;  // the one status in which power saving is evaluated

/// One short run of firmware requests: opens the device "\\.\ZRVACPI", closes it at the end of its scope. Each sequence
/// has its own handle, so threads never share one. Not open when the driver is absent or refuses.
class FirmwareSequence {
 public:
  FirmwareSequence();
  explicit operator bool() const { return static_cast<bool>(device_); }
  [[nodiscard]] const os::Device& Device() const { return device_; }

 private:
  os::Device device_;
};

/// Reads a device's status. Empty when the sequence is not open or the request fails; a reply of fewer than four bytes
/// reads as 0. Any thread; tens of microseconds.
[[nodiscard]] std::optional<std::uint32_t> FirmwareDSTS(const FirmwareSequence& firmware, FirmwareId id);

/// Sets a device's value. Not while the session is not at the console: then another user's controller does. The result
/// is for the log only: a value here means no more than that the request was taken. Otherwise as FirmwareDSTS.
std::optional<std::uint32_t> FirmwareDEVS(const FirmwareSequence& firmware, FirmwareId id, std::uint32_t value);

/// Reads a device's status in a sequence of its own.
[[nodiscard]] std::optional<std::uint32_t> ACPI_ZRV_DSTS(FirmwareId id);

/// Sets the backlight in a sequence of its own; `level` 10..255.
std::optional<std::uint32_t> ACPI_ZRV_DEVS(std::uint32_t level);

/// The hardware's generation. Whatever cannot be read counts as the second.
enum class Generation { G1 = 0, G2 = 1 };
Generation InitGenerationCheck();

}  // namespace tessaview

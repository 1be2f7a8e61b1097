#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/device_io.h"
#include "os/types.h"
#include "sim/displays.h"
#include "sim/handle_table.h"

namespace sim {

/// One request to the firmware device, as it arrived.
struct FirmwareRequest {
  enum class Method { Malformed, Read, Write };
  std::uint32_t controlCode = 0;
  os::Bytes raw;
  std::size_t replySize = 0;  // bytes offered for the reply

  // What it says; of a malformed request nothing.
  Method method = Method::Malformed;
  std::uint32_t id = 0, value = 0;
};

/// One variable written to the machine's firmware.
struct FirmwareVariable {
  std::wstring name, guid;
  os::Bytes value;
};

/// The laptop's firmware behind the device \\.\ZRVACPI: registers that requests read and write, each with effects on
/// the C panel. A new one is of generation G2, in notebook mode, with the panel on at level 116.
class Firmware {
 public:
  class Door;

  explicit Firmware(Displays& displays) : displays_(displays) {}

  static constexpr std::uint32_t kPower = 0x00050031, kBacklight = 0x00050032, kGeneration = 0x00050033,
                                 kRefreshRate = 0x00050034, kLidCloseAction = 0x00050035, kFlip = 0x00060062;
  static constexpr std::uint32_t kPanelOn = 0x000100A0, kPanelOff = 0x00010000;  // values of kPower

  /// Whether the driver is there at all.
  bool driverInstalled = true;

  /// Whether the C panel leaves the display list when it is switched off, and comes back a while after it is on.
  bool panelLeavesWhenOff = false;

  /// How many bytes of a reply the driver fills in.
  std::size_t replyBytes = 4;

  [[nodiscard]] std::uint32_t Register(std::uint32_t id) const;
  void SetRegister(std::uint32_t id, std::uint32_t value) { registers_[id] = value; }

  [[nodiscard]] bool PanelOn() const { return Register(kPower) == kPanelOn; }
  /// The level the panel shines with, 0..255, kept while it is off.
  [[nodiscard]] std::uint32_t Backlight() const { return Register(kBacklight) & 0xFF; }
  void SetGeneration(int generation);  // 1 or 2
  void Flip(bool flipped) { SetRegister(kFlip, flipped ? 1 : 0); }

  [[nodiscard]] const std::vector<FirmwareRequest>& Requests() const { return requests_; }
  /// The values written to one register, in order.
  [[nodiscard]] std::vector<std::uint32_t> Writes(std::uint32_t id) const;
  /// How many writes there were to all of them.
  [[nodiscard]] std::size_t WriteCount() const;
  void ForgetRequests() { requests_.clear(); }

  [[nodiscard]] const std::vector<FirmwareVariable>& Variables() const { return variables_; }
  [[nodiscard]] std::size_t OpenHandles() const { return handles_.size(); }

 private:
  struct OpenDevice {};
  std::uint32_t Perform(const FirmwareRequest& request);

  Displays& displays_;
  std::map<std::uint32_t, std::uint32_t> registers_{{kPower, kPanelOn}, {kBacklight, 116},    {kGeneration, 0},
                                                    {kRefreshRate, 1},  {kLidCloseAction, 0}, {kFlip, 0}};
  std::vector<FirmwareRequest> requests_;
  std::vector<FirmwareVariable> variables_;
  HandleTable<os::DeviceHandle, OpenDevice> handles_;
};

class Firmware::Door : public Firmware {
 public:
  using Firmware::Firmware;

  std::optional<os::DeviceHandle> Open(const std::wstring& path);
  void Close(os::DeviceHandle device) noexcept { handles_.Close(device); }
  std::optional<os::Bytes> Control(os::DeviceHandle device, std::uint32_t code, os::BytesView request,
                                   std::size_t replySize);
  /// The process is gone, and all it held.
  void EndProcess() { handles_.CloseAll(); }
  void WriteVariable(FirmwareVariable variable) { variables_.push_back(std::move(variable)); }
};

}  // namespace sim

#include "os/device_io.h"
#include "sim/parts.h"

namespace os {

using sim::Machine;

void CloseDevice(DeviceHandle device) noexcept {
  if (sim::IsOn()) Machine().firmware.Close(device);
}

Result<Device> OpenDevice(const wchar_t* path) {
  constexpr std::uint32_t kFileNotFound = 2;
  const auto call = sim::Enter<&OpenDevice>();
  if (call.failed()) return Error{call.error()};
  const auto device = Machine().firmware.Open(path);
  if (!device) return Error{kFileNotFound};
  return Device(*device);
}

std::optional<Bytes> Control(const Device& device, std::uint32_t code, BytesView request, std::size_t replySize) {
  const auto call = sim::Enter<&Control>();
  if (call.failed()) return std::nullopt;
  auto reply = Machine().firmware.Control(device.get(), code, request, replySize);
  if (reply) reply->resize(call.Shortened(reply->size()));
  return reply;
}

Status WriteFirmwareVariable(const wchar_t* name, const wchar_t* guid, BytesView value) {
  constexpr std::uint32_t kPrivilegeNotHeld = 1314;
  const auto call = sim::Enter<&WriteFirmwareVariable>();
  if (call.failed()) return Error{call.error()};
  if (!Machine().sessions.PrivilegeEnabled(L"SeSystemEnvironmentPrivilege")) return Error{kPrivilegeNotHeld};
  Machine().firmware.WriteVariable({name, guid, {value.begin(), value.end()}});
  return Done{};
}

}  // namespace os

#include "os/device_io.h"
#include "os/devices.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {

using sim::Machine;

void CloseDevice(DeviceHandle device) noexcept {
  if (sim::IsOn()) Machine().firmware.Close(device);
}

Result<Device> OpenDevice(const wchar_t* path) {
  if (const auto call = sim::Enter<&OpenDevice>(); call.failed()) return Error{call.error()};
  const auto device = Machine().firmware.Open(path);
  if (!device) return Error{sim::kFileNotFound};
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
  if (const auto call = sim::Enter<&WriteFirmwareVariable>(); call.failed()) return Error{call.error()};
  if (!Machine().sessions.PrivilegeEnabled(L"SeSystemEnvironmentPrivilege")) return Error{sim::kPrivilegeNotHeld};
  Machine().firmware.WriteVariable({name, guid, {value.begin(), value.end()}});
  return Done{};
}

std::vector<std::wstring> PresentDeviceClasses() {
  const auto call = sim::Enter<&PresentDeviceClasses>();
  if (call.failed()) return {};
  std::vector<std::wstring> classes{L"System", L"HIDClass", L"", L"Display"};  // of the third it cannot be read
  for (const auto& screen : Machine().displays.Screens()) {
    if (screen.plugged) classes.push_back(L"Monitor");
  }
  classes.resize(call.Shortened(classes.size()));
  return classes;
}

}  // namespace os

#include <utility>

#include "os/hid.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::HidCollection;
using sim::Machine;

HidInterface InterfaceOf(const HidCollection& collection) {
  const bool isRead = collection.detail == HidInterface::Detail::Read;
  return {collection.detail, isRead ? collection.path : std::wstring()};
}

}  // namespace

std::optional<std::vector<HidInterface>> HidInterfaces() {
  const auto call = sim::Enter<&HidInterfaces>();
  if (call.failed()) return std::nullopt;
  std::vector<HidInterface> interfaces;
  for (const auto& collection : Machine().touch.Collections()) {
    if (collection.Works()) interfaces.push_back(InterfaceOf(collection));
  }
  interfaces.resize(call.Shortened(interfaces.size()));
  return interfaces;
}

void CloseHid(HidHandle device) noexcept {
  if (sim::IsOn()) Machine().touch.Close(device);
}

Result<HidDevice> OpenHid(const std::wstring& path) {
  if (const auto call = sim::Enter<&OpenHid>(); call.failed()) return Error{call.error()};
  const auto device = Machine().touch.Open(path);
  if (!device) return Error{device.error()};
  return HidDevice(*device);
}

std::optional<HidAttributes> QueryHidAttributes(const HidDevice& device) {
  const auto call = sim::Enter<&QueryHidAttributes>();
  const auto* collection = Machine().touch.Find(device.get());
  if (call.failed() || collection == nullptr) return std::nullopt;
  return collection->attributes;
}

std::optional<HidCapabilities> QueryHidCapabilities(const HidDevice& device) {
  const auto call = sim::Enter<&QueryHidCapabilities>();
  const auto* collection = Machine().touch.Find(device.get());
  if (call.failed() || collection == nullptr || !collection->hasPreparsedData) return std::nullopt;
  auto capabilities = collection->capabilities;
  capabilities.inputValueCaps = static_cast<std::uint16_t>(collection->inputValues.size());
  capabilities.outputValueCaps = static_cast<std::uint16_t>(collection->outputValues.size());
  return capabilities;
}

std::vector<HidValue> HidInputValues(const HidDevice& device) {
  const auto call = sim::Enter<&HidInputValues>();
  const auto* collection = Machine().touch.Find(device.get());
  if (call.failed() || collection == nullptr || !collection->hasPreparsedData) return {};
  return collection->inputValues;
}

std::vector<HidValue> HidOutputValues(const HidDevice& device) {
  const auto call = sim::Enter<&HidOutputValues>();
  const auto* collection = Machine().touch.Find(device.get());
  if (call.failed() || collection == nullptr || !collection->hasPreparsedData) return {};
  return collection->outputValues;
}

bool WriteHidReport(const HidDevice& device, BytesView report) {
  const auto call = sim::Enter<&WriteHidReport>();
  return !call.failed() && Machine().touch.Write(device.get(), report);
}

Result<std::uint32_t> RawInputDeviceCount() {
  if (const auto call = sim::Enter<&RawInputDeviceCount>(); call.failed()) return Error{call.error()};
  return static_cast<std::uint32_t>(Machine().touch.RawDevices().size());
}

Result<std::vector<RawDevice>> RawInputDevices(std::uint32_t count) {
  const auto call = sim::Enter<&RawInputDevices>();
  if (call.failed()) return Error{call.error()};
  auto devices = Machine().touch.RawDevices();
  if (devices.size() > count) return Error{sim::kInsufficientBuffer};
  devices.resize(call.Shortened(devices.size()));
  return devices;
}

std::wstring RawDevicePath(RawDevice device) {
  if (sim::Enter<&RawDevicePath>().failed()) return {};
  const auto* collection = Machine().touch.Find(device);
  return collection == nullptr ? std::wstring() : collection->path;
}

std::optional<RawDeviceIdentity> QueryRawDevice(RawDevice device) {
  constexpr std::uint16_t kGenericDesktop = 0x01, kMouseUsage = 2, kKeyboardUsage = 6;
  const auto call = sim::Enter<&QueryRawDevice>();
  const auto* collection = Machine().touch.Find(device);
  if (call.failed() || collection == nullptr) return std::nullopt;
  const auto [usage, usagePage] = std::pair(collection->capabilities.usage, collection->capabilities.usagePage);
  if (usagePage == kGenericDesktop && (usage == kMouseUsage || usage == kKeyboardUsage)) return std::nullopt;
  return RawDeviceIdentity{collection->attributes.vendorId, collection->attributes.productId, usagePage, usage};
}

Status RegisterRawInput(std::uint16_t usagePage, std::uint16_t usage, std::uint32_t flags, WindowHandle target) {
  if (const auto call = sim::Enter<&RegisterRawInput>(); call.failed()) return Error{call.error()};
  return sim::Outcome(Machine().touch.RegisterRawInput({usagePage, usage, flags, target}));
}

void CloseHidNodes(HidNodesHandle nodes) noexcept {
  if (sim::IsOn()) Machine().touch.Close(nodes);
}

Result<HidNodes> OpenHidNodes() {
  if (const auto call = sim::Enter<&OpenHidNodes>(); call.failed()) return Error{call.error()};
  return HidNodes(Machine().touch.OpenNodes());
}

std::vector<std::wstring> FirstHardwareIds(const HidNodes& nodes) {
  if (sim::Enter<&FirstHardwareIds>().failed()) return {};
  return Machine().touch.FirstHardwareIds(nodes.get());
}

Result<NodeChange> EnableHidNode(const HidNodes& nodes, std::size_t index, bool enable) {
  if (const auto call = sim::Enter<&EnableHidNode>(); call.failed()) return Error{call.error()};
  return Machine().touch.SwitchNode(nodes.get(), index, enable);
}

}  // namespace os

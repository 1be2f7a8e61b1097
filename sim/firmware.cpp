#include "sim/firmware.h"

#include <algorithm>

#include "sim/bytes.h"
#include "sim/text.h"

namespace sim {
namespace {

constexpr std::uint32_t kControlCode = 0x0022240C;
constexpr std::uint32_t kReadTag = 0x53545344;   // "DSTS"
constexpr std::uint32_t kWriteTag = 0x53564544;  // "DEVS"
constexpr std::size_t kHeaderSize = 8, kReadArguments = 4, kWriteArguments = 8;
constexpr std::uint32_t kFirstGenerationBit = 4;

bool Has(os::BytesView raw, std::uint32_t tag, std::size_t arguments) {
  return raw.size() == kHeaderSize + arguments && GetWord(raw, 0) == tag && GetWord(raw, 4) == arguments;
}

FirmwareRequest Decode(std::uint32_t code, os::BytesView raw, std::size_t replySize) {
  FirmwareRequest request{code, {raw.begin(), raw.end()}, replySize};
  const bool reads = Has(raw, kReadTag, kReadArguments), writes = Has(raw, kWriteTag, kWriteArguments);
  if (code != kControlCode || (!reads && !writes)) return request;
  request.method = reads ? FirmwareRequest::Method::Read : FirmwareRequest::Method::Write;
  request.id = GetWord(raw, 8);
  if (writes) request.value = GetWord(raw, 12);
  return request;
}

}  // namespace

std::uint32_t Firmware::Register(std::uint32_t id) const {
  const auto found = registers_.find(id);
  return found == registers_.end() ? 0 : found->second;
}

void Firmware::SetGeneration(int generation) {
  SetRegister(kGeneration, generation == 1 ? kFirstGenerationBit : 0);
}

std::size_t Firmware::WriteCount() const {
  return static_cast<std::size_t>(std::count_if(requests_.begin(), requests_.end(), [](const FirmwareRequest& request) {
    return request.method == FirmwareRequest::Method::Write;
  }));
}

std::vector<std::uint32_t> Firmware::Writes(std::uint32_t id) const {
  std::vector<std::uint32_t> values;
  for (const auto& request : requests_) {
    if (request.method == FirmwareRequest::Method::Write && request.id == id) values.push_back(request.value);
  }
  return values;
}

std::optional<os::DeviceHandle> Firmware::Door::Open(const std::wstring& path) {
  if (!driverInstalled || Lower(path) != L"\\\\.\\zrvacpi") return std::nullopt;
  return handles_.Open({});
}

std::optional<os::Bytes> Firmware::Door::Control(os::DeviceHandle device, std::uint32_t code, os::BytesView request,
                                                 std::size_t replySize) {
  if (!driverInstalled || handles_.Find(device) == nullptr) return std::nullopt;
  requests_.push_back(Decode(code, request, replySize));
  if (requests_.back().method == FirmwareRequest::Method::Malformed) return std::nullopt;

  const auto result = Perform(requests_.back());
  os::Bytes reply(std::min(replyBytes, replySize));
  PutNumber(reply, 0, result, std::min<std::size_t>(4, reply.size()));
  return reply;
}

/// Milliseconds from power to picture.
constexpr std::uint32_t kPanelWakesMs = 800;

/// Carries out a request and returns its result word: a register, or 1 for a write to one that exists.
std::uint32_t Firmware::Perform(const FirmwareRequest& request) {
  const auto found = registers_.find(request.id);
  if (found == registers_.end()) return 0;
  auto& stored = found->second;
  if (request.method == FirmwareRequest::Method::Read) return stored;

  auto& panel = displays_.cPanel();
  if (request.id == kPower) {
    stored = request.value == 0 ? kPanelOff : kPanelOn;
    if (panelLeavesWhenOff && request.value == 0) displays_.Leave(panel);
  } else if (request.id == kBacklight) {  // a new level also brings a panel back that was off
    stored = (stored & ~0xFFU) | (request.value & 0xFF);
    SetRegister(kPower, kPanelOn);
    if (panelLeavesWhenOff && !panel.plugged) displays_.AppearsAfter(panel, kPanelWakesMs);
  } else {
    stored = request.value;
  }
  return 1;
}

}  // namespace sim

#include "power/firmware.h"

#include <span>

#include "core/console.h"
#include "core/log_failure.h"
#include "core/numbers.h"
#include "core/trace_log.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kDevicePath = L"\\\\.\\ZRVACPI";
constexpr std::uint32_t kControlCode = 0x0022240C;  // FILE_DEVICE_UNKNOWN, function 0x903, buffered, any access
constexpr std::size_t kReplySize = 1024;

constexpr std::uint32_t kReadStatus = 0x53545344;  // "DSTS"
constexpr std::uint32_t kSetValue = 0x53564544;    // "DEVS"

constexpr std::uint32_t kFirstGeneration = 0x4;

void AppendWord(os::Bytes& bytes, std::uint32_t word) {
  bytes.resize(bytes.size() + sizeof word);
  PutLittleEndian(&bytes[bytes.size() - sizeof word], word);
}

/// A request: the method's four letters, the length of the arguments in bytes, the arguments; all little-endian.
os::Bytes Request(std::uint32_t method, std::span<const std::uint32_t> arguments) {
  os::Bytes request;
  AppendWord(request, method);
  AppendWord(request, static_cast<std::uint32_t>(arguments.size_bytes()));
  for (const auto argument : arguments) AppendWord(request, argument);
  return request;
}

/// The first four bytes of a reply, little-endian; 0 when it has fewer.
std::uint32_t ResultOf(os::BytesView reply) {
  return reply.size() < 4 ? 0 : GetLittleEndian<std::uint32_t>(reply, 0);
}

std::optional<std::uint32_t> Send(const FirmwareSequence& firmware, const os::Bytes& request) {
  if (!firmware) return std::nullopt;
  const auto reply = os::Control(firmware.Device(), kControlCode, request, kReplySize);
  if (!reply) return std::nullopt;
  return ResultOf(*reply);
}

}  // namespace

FirmwareSequence::FirmwareSequence() {
  auto device = os::OpenDevice(kDevicePath);
  LogFailure(L"The firmware cannot be opened", device);
  if (device) device_ = std::move(*device);
}

std::optional<std::uint32_t> FirmwareDSTS(const FirmwareSequence& firmware, FirmwareId id) {
  const std::uint32_t arguments[] = {static_cast<std::uint32_t>(id)};
  return Send(firmware, Request(kReadStatus, arguments));
}

std::optional<std::uint32_t> FirmwareDEVS(const FirmwareSequence& firmware, FirmwareId id, std::uint32_t value) {
  if (!IsAtConsole()) return std::nullopt;
  const std::uint32_t arguments[] = {static_cast<std::uint32_t>(id), value};
  return Send(firmware, Request(kSetValue, arguments));
}

std::optional<std::uint32_t> ACPI_ZRV_DSTS(FirmwareId id) {
  Log(L"[ACPI_ZRV_DSTS] Arg = 0x%x", id);
  const FirmwareSequence firmware;
  const auto result = FirmwareDSTS(firmware, id);
  if (result) Log(L"[ACPI_ZRV_DSTS] return = 0x%x", *result);
  return result;
}

std::optional<std::uint32_t> ACPI_ZRV_DEVS(std::uint32_t level) {
  Log(L"[ACPI_ZRV_DEVS] Arg0 = 0x%x, Arg1 = 0x%x", FirmwareId::Backlight, level);
  const FirmwareSequence firmware;
  const auto result = FirmwareDEVS(firmware, FirmwareId::Backlight, level);
  if (result) Log(L"[ACPI_ZRV_DSTS] return = 0x%x", *result);  // readers of the log know it by this tag
  return result;
}

Generation InitGenerationCheck() {
  const FirmwareSequence firmware;
  const auto status = FirmwareDSTS(firmware, FirmwareId::Generation);
  if (!status) return Generation::G2;
  if ((*status & kFirstGeneration) != 0) {
    Log(L"[InitGenerationCheck] Generation is G1");
    return Generation::G1;
  }
  Log(L"[InitGenerationCheck] Generation is G2");
  return Generation::G2;
}

}  // namespace tessaview

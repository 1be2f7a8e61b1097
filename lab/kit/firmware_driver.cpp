#include "kit/firmware_driver.h"

#include <windows.h>

#include <array>
#include <memory>

#include "kit/device.h"
#include "kit/journal.h"
#include "kit/process.h"

namespace lab {
namespace {

constexpr wchar_t kDevice[] = L"\\\\.\\ZRVACPI";
constexpr wchar_t kService[] = L"zrvacpi";

struct CloseService {
  void operator()(SC_HANDLE handle) const { CloseServiceHandle(handle); }
};
using ServiceHandle = std::unique_ptr<std::remove_pointer_t<SC_HANDLE>, CloseService>;

ServiceHandle OpenManager() {
  return ServiceHandle(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_ALL_ACCESS));
}

ServiceHandle OpenDriver() {
  const auto manager = OpenManager();
  return ServiceHandle(OpenServiceW(manager.get(), kService, SERVICE_ALL_ACCESS));
}

}  // namespace

bool FirmwareDriver::Install() {
  const std::wstring file = LabFolder() + L"zrvacpi.sys";
  const auto manager = OpenManager();
  const ServiceHandle made(CreateServiceW(manager.get(), kService, kService, SERVICE_ALL_ACCESS, SERVICE_KERNEL_DRIVER,
                                          SERVICE_DEMAND_START, SERVICE_ERROR_NORMAL, file.c_str(), nullptr, nullptr,
                                          nullptr, nullptr, nullptr));
  if (!made && GetLastError() != ERROR_SERVICE_EXISTS) return false;
  return Start();
}

bool FirmwareDriver::Start() {
  const auto driver = OpenDriver();
  if (!StartServiceW(driver.get(), 0, nullptr) && GetLastError() != ERROR_SERVICE_ALREADY_RUNNING) return false;
  return Eventually([this] { return Reset(); });
}

bool FirmwareDriver::Stop() {
  SERVICE_STATUS status{};
  return ControlService(OpenDriver().get(), SERVICE_CONTROL_STOP, &status) != 0;
}

bool FirmwareDriver::Set(std::uint32_t id, std::uint32_t value) {
  const FirmwareRegister one{id, value};
  return ControlDevice(kDevice, kFirmwareSetRegister, &one, sizeof one);
}

std::uint32_t FirmwareDriver::Read(std::uint32_t id) {
  const std::array<std::uint32_t, 3> request{kMethodDsts, 4, id};
  std::uint32_t value = 0;
  (void)ControlDevice(kDevice, kFirmwareRequest, request.data(), sizeof request, &value, sizeof value);
  return value;
}

bool FirmwareDriver::SetFault(std::uint32_t id, FirmwareFaultKind kind, std::uint32_t replyBytes) {
  const FirmwareFault fault{id, static_cast<std::uint32_t>(kind), replyBytes};
  return ControlDevice(kDevice, kFirmwareSetFault, &fault, sizeof fault);
}

bool FirmwareDriver::Reset() {
  return ControlDevice(kDevice, kFirmwareReset, nullptr, 0);
}

std::vector<FirmwareRecord> FirmwareDriver::Requests(std::uint32_t& next) const {
  const auto journal = std::make_unique<FirmwareJournal>();
  if (!ControlDevice(kDevice, kFirmwareReadJournal, &next, sizeof next, journal.get(), sizeof *journal)) return {};
  next = journal->total;
  return {journal->records, journal->records + journal->count};
}

std::wstring Describe(const FirmwareRecord& request) {
  std::array<wchar_t, 80> text{};
  if (request.method == kMethodDevs) {
    swprintf(text.data(), text.size(), L"DEVS 0x%08X = %u", request.id, request.value);
  } else {
    swprintf(text.data(), text.size(), L"DSTS 0x%08X -> 0x%X", request.id, request.result);
  }
  std::wstring line = text.data();
  if (request.fault == kRequestFails) line += L" (failed)";
  if (request.fault == kShortReply) line += L" (answered short)";
  return line;
}

}  // namespace lab

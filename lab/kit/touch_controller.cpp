#include "kit/touch_controller.h"

#include <windows.h>

#include <newdev.h>
#include <setupapi.h>

#include <array>
#include <cstring>
#include <memory>

#include "kit/device.h"
#include "kit/hid_presence.h"
#include "kit/journal.h"
#include "kit/process.h"

namespace lab {
namespace {

constexpr wchar_t kBus[] = L"\\\\.\\ZRVHIDBUS";
constexpr wchar_t kBusHardwareId[] = L"root\\zrvbus";  // what zrvbus.inf matches
constexpr GUID kSystemClass{0x4d36e97d, 0xe325, 0x11ce, {0xbf, 0xc1, 0x08, 0x00, 0x2b, 0xe1, 0x03, 0x18}};

/// A part of the collection's interface path, in lower case.
const wchar_t* PathPart(TouchDevice which) {
  return which == kTouchPad ? L"&col05#" : L"&col06#";
}

/// Where the driver files must lie for their INF files to find them.
void CopyDriver(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> system{};
  GetSystemDirectoryW(system.data(), MAX_PATH);
  CopyFileW((LabFolder() + name).c_str(), (std::wstring(system.data()) + L"\\drivers\\" + name).c_str(), FALSE);
}

/// Makes the root-enumerated device node of the bus.
bool RegisterBusNode() {
  const HDEVINFO list = SetupDiCreateDeviceInfoList(&kSystemClass, nullptr);
  SP_DEVINFO_DATA node{};
  node.cbSize = sizeof node;
  std::array<wchar_t, 64> hardwareIds{};  // a list: ends with two NULs
  wcscpy(hardwareIds.data(), kBusHardwareId);
  const bool made =
      SetupDiCreateDeviceInfoW(list, L"zrvbus", &kSystemClass, nullptr, nullptr, DICD_GENERATE_ID, &node) &&
      SetupDiSetDeviceRegistryPropertyW(list, &node, SPDRP_HARDWAREID, reinterpret_cast<BYTE*>(hardwareIds.data()),
                                        static_cast<DWORD>((wcslen(kBusHardwareId) + 2) * sizeof(wchar_t))) &&
      SetupDiCallClassInstaller(DIF_REGISTERDEVICE, list, &node);
  SetupDiDestroyDeviceInfoList(list);
  return made;
}

bool BusAnswers() {
  const HANDLE bus = CreateFileW(kBus, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                 OPEN_EXISTING, 0, nullptr);
  if (bus == INVALID_HANDLE_VALUE) return false;
  CloseHandle(bus);
  return true;
}

}  // namespace

bool TouchController::Install() {
  if (BusAnswers()) return true;
  CopyDriver(L"zrvbus.sys");
  CopyDriver(L"zrvhid.sys");
  const std::wstring folder = LabFolder();
  if (!SetupCopyOEMInfW((folder + L"zrvhid.inf").c_str(), nullptr, SPOST_NONE, 0, nullptr, 0, nullptr, nullptr)) {
    return false;
  }
  if (!RegisterBusNode()) return false;
  BOOL reboot = FALSE;
  if (!UpdateDriverForPlugAndPlayDevicesW(nullptr, kBusHardwareId, (folder + L"zrvbus.inf").c_str(), INSTALLFLAG_FORCE,
                                          &reboot)) {
    return false;
  }
  return Eventually(BusAnswers);
}

bool TouchController::Plug(TouchDevice which) {
  if (IsPresent(which)) return true;
  const std::uint32_t request = which;
  return ControlDevice(kBus, kTouchPlug, &request, sizeof request) && Eventually([&] { return IsPresent(which); });
}

bool TouchController::Unplug(TouchDevice which) {
  const std::uint32_t request = which;
  return ControlDevice(kBus, kTouchUnplug, &request, sizeof request) && Eventually([&] { return !IsPresent(which); });
}

bool TouchController::IsPresent(TouchDevice which) const {
  return IsHidInterfacePresent(PathPart(which));
}

bool TouchController::Report(TouchDevice which, const TouchBytes& report) {
  TouchBytes request(sizeof(std::uint32_t));
  const std::uint32_t device = which;
  std::memcpy(request.data(), &device, sizeof device);
  request.insert(request.end(), report.begin(), report.end());
  return ControlDevice(kBus, kTouchInput, request.data(), static_cast<std::uint32_t>(request.size()));
}

std::vector<TouchBytes> TouchController::Outputs(TouchDevice which, std::uint32_t& next) const {
  const std::array<std::uint32_t, 2> request{static_cast<std::uint32_t>(which), next};
  const auto outputs = std::make_unique<TouchOutputs>();
  std::vector<TouchBytes> reports;
  if (!ControlDevice(kBus, kTouchOutputs, request.data(), sizeof request, outputs.get(), sizeof *outputs)) return {};
  next = outputs->total;
  for (std::uint32_t i = 0; i < outputs->count; i++) {
    const TouchReport& report = outputs->reports[i];
    reports.emplace_back(report.bytes, report.bytes + report.size);
  }
  return reports;
}

}  // namespace lab

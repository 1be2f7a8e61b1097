#include "os/hid.h"

#include "os/win32/device_list.h"
#include "os/win32/hid_system.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct PreparsedFreer {
  void operator()(PHIDP_PREPARSED_DATA data) const noexcept { HidD_FreePreparsedData(data); }
};
using Preparsed = std::unique_ptr<_HIDP_PREPARSED_DATA, PreparsedFreer>;

HANDLE NativeOf(const HidDevice& device) {
  return win32::ToNative<HANDLE>(device.get());
}

Preparsed PreparsedOf(const HidDevice& device) {
  PHIDP_PREPARSED_DATA data = nullptr;
  if (HidD_GetPreparsedData(NativeOf(device), &data) == FALSE) return {};
  return Preparsed(data);
}

HidInterface FromInterface(const win32::DeviceInterface& listed) {
  if (listed.hasDetail) return {HidInterface::Detail::Read, listed.path};
  return {listed.detailSize == 0 ? HidInterface::Detail::NoSize : HidInterface::Detail::NoData, {}};
}

HidValue FromNative(const HIDP_VALUE_CAPS& value) {
  const USAGE usage = value.IsRange != FALSE ? value.Range.UsageMin : value.NotRange.Usage;
  return {value.UsagePage, usage, value.ReportID, value.LogicalMin, value.LogicalMax};
}

std::vector<HidValue> ValuesOf(const HidDevice& device, HIDP_REPORT_TYPE type, USHORT HIDP_CAPS::*count) {
  const Preparsed preparsed = PreparsedOf(device);
  HIDP_CAPS collection{};
  if (!preparsed || HidP_GetCaps(preparsed.get(), &collection) != HIDP_STATUS_SUCCESS) return {};

  USHORT length = collection.*count;
  std::vector<HIDP_VALUE_CAPS> native(length);
  if (length == 0 || HidP_GetValueCaps(type, native.data(), &length, preparsed.get()) != HIDP_STATUS_SUCCESS) return {};
  native.resize(std::min<std::size_t>(native.size(), length));

  std::vector<HidValue> values;
  values.reserve(native.size());
  for (const auto& value : native) values.push_back(FromNative(value));
  return values;
}

/// How long a driver may take to let go of a write that was given up.
constexpr DWORD kCancelLimitMs = 100;

/// One write under way: until its end the system reads the report and writes the rest.
struct PendingWrite {
  explicit PendingWrite(BytesView whole) : report(whole.begin(), whole.end()) { overlapped.hEvent = event.get(); }

  /// True when it has ended well already; else the last error says whether it is under way.
  [[nodiscard]] bool Start(HANDLE device) {
    return WriteFile(device, report.data(), static_cast<DWORD>(report.size()), nullptr, &overlapped) != FALSE;
  }

  /// True when it ends well within `ms`; else the last error says why not.
  [[nodiscard]] bool EndsWithin(DWORD ms, HANDLE device) {
    DWORD written = 0;
    return GetOverlappedResultEx(device, &overlapped, &written, ms, FALSE) != FALSE;
  }

  Bytes report;
  win32::LocalHandle event{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  OVERLAPPED overlapped{};
};

}  // namespace

std::optional<std::vector<HidInterface>> HidInterfaces() {
  GUID hid{};
  HidD_GetHidGuid(&hid);
  const win32::DeviceList devices = win32::ListInterfaces(hid);
  if (!devices) return {};
  std::vector<HidInterface> interfaces;
  for (const auto& listed : win32::ReadInterfaces(devices, hid)) interfaces.push_back(FromInterface(listed));
  return interfaces;
}

void CloseHid(HidHandle device) noexcept {
  CloseHandle(win32::ToNative<HANDLE>(device));
}

Result<HidDevice> OpenHid(const std::wstring& path) {
  return win32::OwnOrLastError<HidDevice>(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                      nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
}

std::optional<HidAttributes> QueryHidAttributes(const HidDevice& device) {
  HIDD_ATTRIBUTES attributes{};
  attributes.Size = sizeof attributes;
  if (HidD_GetAttributes(NativeOf(device), &attributes) == FALSE) return {};
  return HidAttributes{attributes.VendorID, attributes.ProductID, attributes.VersionNumber};
}

std::optional<HidCapabilities> QueryHidCapabilities(const HidDevice& device) {
  const Preparsed preparsed = PreparsedOf(device);
  if (!preparsed) return {};
  HIDP_CAPS native{};
  HidP_GetCaps(preparsed.get(), &native);
  return HidCapabilities{.usage = native.Usage,
                         .usagePage = native.UsagePage,
                         .inputReportLength = native.InputReportByteLength,
                         .outputReportLength = native.OutputReportByteLength,
                         .featureReportLength = native.FeatureReportByteLength,
                         .inputValueCaps = native.NumberInputValueCaps,
                         .outputValueCaps = native.NumberOutputValueCaps,
                         .featureValueCaps = native.NumberFeatureValueCaps};
}

std::vector<HidValue> HidInputValues(const HidDevice& device) {
  return ValuesOf(device, HidP_Input, &HIDP_CAPS::NumberInputValueCaps);
}

std::vector<HidValue> HidOutputValues(const HidDevice& device) {
  return ValuesOf(device, HidP_Output, &HIDP_CAPS::NumberOutputValueCaps);
}

bool WriteHidReport(const HidDevice& device, BytesView report) {
  auto write = std::make_unique<PendingWrite>(report);
  if (!write->event) return false;
  if (write->Start(NativeOf(device))) return true;
  if (GetLastError() != ERROR_IO_PENDING) return false;
  if (write->EndsWithin(kHidWriteLimitMs, NativeOf(device))) return true;
  if (GetLastError() != WAIT_TIMEOUT) return false;
  CancelIoEx(NativeOf(device), &write->overlapped);
  const bool wasTaken = write->EndsWithin(kCancelLimitMs, NativeOf(device));
  // A driver that does not even let go of it may use the report for as long as it likes.
  if (!wasTaken && GetLastError() == WAIT_TIMEOUT) static_cast<void>(write.release());
  return wasTaken;
}

}  // namespace os

#include "touch/touch_pad_search.h"

#include <algorithm>
#include <utility>

#include "core/trace_log.h"
#include "touch/hid_usages.h"

namespace tessaview {
namespace {

/// One HID collection, open for writing, with its controller's ids.
struct OpenCollection {
  int number;  // its place in the system's list
  os::HidDevice device;
  os::HidAttributes attributes;
};

/// The path of a listed interface; null, with a log line, when the system could not tell it.
const std::wstring* PathOf(const os::HidInterface& listed) {
  switch (listed.detail) {
    case os::HidInterface::Detail::NoSize:
      Log(L"ERROR : SetupDiGetDeviceInterfaceDetail fial, dwSize has no size.\n");
      return nullptr;
    case os::HidInterface::Detail::NoData:
      Log(L"ERROR : SetupDiGetDeviceInterfaceDetail fial, can not get detail data.\n");
      return nullptr;
    case os::HidInterface::Detail::Read:
      return &listed.path;
  }
  return nullptr;
}

std::optional<OpenCollection> Open(int number, const os::HidInterface& listed) {
  const auto* const path = PathOf(listed);
  if (path == nullptr) return std::nullopt;
  Log(L"DevicePath = %ls\n", *path);
  auto device = os::OpenHid(*path);
  if (!device) {
    Log(L"hHidOut = NULL\n");
    return std::nullopt;
  }
  const auto attributes = os::QueryHidAttributes(*device);
  if (!attributes) {
    Log(L"HidD_GetAttributes failed\n");
    return std::nullopt;
  }
  return OpenCollection{number, std::move(*device), *attributes};
}

/// Hands every collection that opens to `accept`, in the system's order, until one is taken.
template <class Accept>
bool FindCollection(Accept accept) {
  const auto interfaces = os::HidInterfaces();
  if (!interfaces) {
    Log(L"ERROR : Unable to enumerate HID device.\n");
    return false;
  }
  int number = 0;
  return std::any_of(interfaces->begin(), interfaces->end(), [&](const os::HidInterface& listed) {
    auto collection = Open(number++, listed);
    return collection && accept(*collection);
  });
}

void LogDevice(const OpenCollection& collection) {
  Log(L"Hid Device Number %d : Vid:0x%x Pid:0x%x\n", collection.number, collection.attributes.vendorId,
      collection.attributes.productId);
}

std::optional<os::HidCapabilities> Capabilities(const OpenCollection& collection) {
  const auto capabilities = os::QueryHidCapabilities(collection.device);
  if (!capabilities) Log(L"Get PreparsedData failed!\n");
  return capabilities;
}

/// Takes the pad's coordinate ranges from its input values.
void ReadRanges(const os::HidDevice& device, TouchPad& pad) {
  for (int index = 0; const auto& value : os::HidInputValues(device)) {
    if (value.usagePage == kGenericDesktopPage && value.usage == kUsageX) {
      pad.xLogicalMax = value.logicalMax;
      Log(L"pInputValueCaps '%d' ReportID = %d, XLogicalMax = %d, XLogicalMin = %d\n", index, value.reportId,
          value.logicalMax, value.logicalMin);
    } else if (value.usagePage == kGenericDesktopPage && value.usage == kUsageY) {
      pad.yLogicalMax = value.logicalMax;
      Log(L"pInputValueCaps '%d' ReportID = %d, YLogicalMax = %d, YLogicalMin = %d\n", index, value.reportId,
          value.logicalMax, value.logicalMin);
    }
    if (pad.xLogicalMax != 0 && pad.yLogicalMax != 0) return;
    ++index;
  }
}

bool AcceptController(const OpenCollection& collection, TouchPad& pad) {
  const auto capabilities = Capabilities(collection);
  if (!capabilities) return false;
  LogDevice(collection);
  if (capabilities->usagePage != kDigitizerPage || capabilities->usage != kUsageTouchPad) return false;
  Log(L"Usage = %d, UsagePage = %d\n", capabilities->usage, capabilities->usagePage);
  ReadRanges(collection.device, pad);
  Log(L"Find TouchPad Vid & Pid Success!\n");
  pad.vendorId = collection.attributes.vendorId;
  pad.productId = collection.attributes.productId;
  return true;
}

void LogCapabilities(const os::HidCapabilities& capabilities) {
  Log(L"Usage = %d, UsagePage = %d\n", capabilities.usage, capabilities.usagePage);
  Log(L"InputReportByteLength = %d, OutputReportByteLength = %d, FeatureReportByteLength = %d\n",
      capabilities.inputReportLength, capabilities.outputReportLength, capabilities.featureReportLength);
  Log(L"NumberInputValueCaps = %d, NumberOutputValueCaps = %d, NumberFeatureValueCaps = %d\n",
      capabilities.inputValueCaps, capabilities.outputValueCaps, capabilities.featureValueCaps);
}

bool TakesModeReport(const os::HidDevice& device) {
  const auto values = os::HidOutputValues(device);
  return std::any_of(values.begin(), values.end(),
                     [](const os::HidValue& value) { return value.reportId == kModeReportId; });
}

bool AcceptModeCollection(OpenCollection& collection, TouchPad& pad) {
  const auto& ids = collection.attributes;
  if (ids.vendorId != pad.vendorId || ids.productId != pad.productId) {
    Log(L"Device is not target device\n");
    return false;
  }
  LogDevice(collection);
  const auto capabilities = Capabilities(collection);
  if (!capabilities) return false;
  LogCapabilities(*capabilities);
  if (!TakesModeReport(collection.device)) return false;
  pad.outputReportLength = capabilities->outputReportLength;
  pad.writeHandle = std::make_shared<const os::HidDevice>(std::move(collection.device));
  return true;
}

}  // namespace

bool FindController(TouchPad& pad) {
  return FindCollection([&](const OpenCollection& collection) { return AcceptController(collection, pad); });
}

bool OpenModeCollection(TouchPad& pad) {
  return FindCollection([&](OpenCollection& collection) { return AcceptModeCollection(collection, pad); });
}

}  // namespace tessaview

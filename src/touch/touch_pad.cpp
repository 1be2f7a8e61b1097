#include "touch/touch_pad.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/log_failure.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "os/trace.h"
#include "touch/hid_usages.h"

namespace tessaview {
namespace {

Shared<TouchPad> gPad;

constexpr std::uint8_t kModeReportId = 3;  // of the output report that switches the controller's mode

// ---- Search ----

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
    LogFailure(L"The HID collection cannot be opened", device);
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

/// Logs the pad's coordinate ranges, up to the first of each axis.
void LogRanges(const os::HidDevice& device) {
  bool hasX = false, hasY = false;
  for (int index = 0; const auto& value : os::HidInputValues(device)) {
    if (value.usagePage == kGenericDesktopPage && value.usage == kUsageX) {
      hasX = value.logicalMax != 0;
      Log(L"pInputValueCaps '%d' ReportID = %d, XLogicalMax = %d, XLogicalMin = %d\n", index, value.reportId,
          value.logicalMax, value.logicalMin);
    } else if (value.usagePage == kGenericDesktopPage && value.usage == kUsageY) {
      hasY = value.logicalMax != 0;
      Log(L"pInputValueCaps '%d' ReportID = %d, YLogicalMax = %d, YLogicalMin = %d\n", index, value.reportId,
          value.logicalMax, value.logicalMin);
    }
    if (hasX && hasY) return;
    ++index;
  }
}

bool AcceptController(const OpenCollection& collection, TouchPad& pad) {
  const auto capabilities = Capabilities(collection);
  if (!capabilities) return false;
  LogDevice(collection);
  if (capabilities->usagePage != kDigitizerPage || capabilities->usage != kUsageTouchPad) return false;
  Log(L"Usage = %d, UsagePage = %d\n", capabilities->usage, capabilities->usagePage);
  LogRanges(collection.device);
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

/// Looks through the HID collections for a touch pad and notes its controller's ids.
bool FindController(TouchPad& pad) {
  return FindCollection([&](const OpenCollection& collection) { return AcceptController(collection, pad); });
}

/// Looks through the controller's collections for the one that takes the mode report, and opens it.
bool OpenModeCollection(TouchPad& pad) {
  return FindCollection([&](OpenCollection& collection) { return AcceptModeCollection(collection, pad); });
}

// ---- Mode ----

/// The output report that switches the controller's pad to cursor mode; the rest of the report is zero.
constexpr std::array<std::uint8_t, 12> kCursorMode = {kModeReportId, 0x00, 0x09, 0xA1, 0x00, 0x00,
                                                      0x0F,          0x00, 0x00, 0x00, 0x08, 0x70};

os::Bytes ModeReport(std::uint32_t length) {
  os::Bytes report(length);
  std::copy_n(kCursorMode.begin(), std::min<std::size_t>(length, kCursorMode.size()), report.begin());
  return report;
}

}  // namespace

TouchPad gTouchPad() {
  return gPad.get();
}

bool FindTouchPadHid() {
  auto pad = gPad.get();
  const bool isControllerKnown = pad.vendorId != 0 || pad.productId != 0;
  const bool found = isControllerKnown ? OpenModeCollection(pad) : FindController(pad);
  gPad.set(pad);
  return found;
}

void ReleaseTouchPad() {
  gPad.set({});
}

bool SearchTouchPadAgain() {
  ReleaseTouchPad();
  FindTouchPadHid();  // which controller it is
  FindTouchPadHid();  // that controller's collection for the mode
  return gPad.get().gTouchPadFound();
}

bool SetModetoTouchPad() {
  const auto pad = gPad.get();
  if (!pad.gTouchPadFound()) {
    os::WriteDebugText(L"Connect failed! SetModetoTouchPad failed.\n");
    return false;
  }
  return os::WriteHidReport(*pad.writeHandle, ModeReport(pad.outputReportLength));
}

}  // namespace tessaview

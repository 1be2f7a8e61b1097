#include "touch/raw_input.h"

#include "core/growing_list.h"
#include "core/log_failure.h"
#include "core/service_window.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "os/trace.h"
#include "touch/hid_usages.h"
#include "touch/touch_pad.h"

namespace tessaview {
namespace {

Shared<os::RawDevice> gScreenDevice;
Shared<os::RawDevice> gPadDevice;

constexpr std::uint16_t kWholePage = 0;  // with page-only registration the usage is left open

std::optional<std::vector<os::RawDevice>> ListRawDevices() {
  bool isCounted = false;
  auto devices = ReadGrowing([&]() -> os::Result<std::vector<os::RawDevice>> {
    const auto count = os::RawInputDeviceCount();
    isCounted = static_cast<bool>(count);
    if (!count) return os::Error{count.error()};
    return os::RawInputDevices(*count);
  });
  if (devices) return std::move(*devices);
  if (!isCounted) {
    Log(L"Get number of devices failed\n");
  } else if (devices.error() == os::kOutOfMemory) {
    Log(L"Initialization malloc space of pRawInputDeviceList failed\n");
  } else {
    Log(L"Get pRawInputDeviceList failed\n");
  }
  return std::nullopt;
}

/// Notes a raw device of the controller's that is its touch screen or its touch pad; true when it is one.
bool NoteIfTouchDevice(os::RawDevice device, std::uint16_t usagePage, std::uint16_t usage) {
  if (usagePage != kDigitizerPage) return false;
  if (usage == kUsageTouchScreen) {
    gScreenDevice.set(device);
    Log(L"Get Rawinput hDevice of CPanel_TouchScreen successed\n");
    return true;
  }
  if (usage == kUsageTouchPad) {
    gPadDevice.set(device);
    Log(L"Get Rawinput hDevice of CPanel_TouchPad successed\n");
    return true;
  }
  return false;
}

/// Notes the raw device if it is a touch collection of the controller. What cannot be opened is somebody else's.
void Inspect(os::RawDevice device, const TouchPad& pad) {
  const auto collection = os::OpenHid(os::RawDevicePath(device));
  if (!collection) return LogFailure(L"A raw input device cannot be opened", collection);
  const auto ids = os::QueryHidAttributes(*collection);
  if (!ids) return;
  Log(L"VID = 0x%x, PID = 0x%x\n", ids->vendorId, ids->productId);
  if (ids->vendorId != pad.vendorId || ids->productId != pad.productId) return;
  const auto capabilities = os::QueryHidCapabilities(*collection);
  if (capabilities) NoteIfTouchDevice(device, capabilities->usagePage, capabilities->usage);
}

}  // namespace

os::RawDevice gRawTouchScreen() {
  return gScreenDevice.get();
}

os::RawDevice gRawTouchPad() {
  return gPadDevice.get();
}

bool IsFromCPanel(os::RawDevice device) {
  if (device == os::RawDevice::None) return false;
  if (device == gRawTouchScreen() || device == gRawTouchPad()) return true;
  const auto pad = gTouchPad();
  if (!pad.gTouchPadFound()) return false;
  const auto stranger = os::QueryRawDevice(device);
  if (!stranger || stranger->vendorId != pad.vendorId || stranger->productId != pad.productId) return false;
  return NoteIfTouchDevice(device, stranger->usagePage, stranger->usage);
}

bool RegisterCPanelRawInput() {
  gScreenDevice.set(os::RawDevice::None);
  gPadDevice.set(os::RawDevice::None);
  const auto pad = gTouchPad();
  if (!pad.gTouchPadFound()) {
    os::WriteDebugText(L"Connect failed! RegisterRawInputDevice failed.\n");
    return false;
  }
  const auto devices = ListRawDevices();
  if (!devices) return false;
  for (const auto device : *devices) Inspect(device, pad);
  const auto registered =
      os::RegisterRawInput(kDigitizerPage, kWholePage, os::kRawInputPageOnly | os::kRawInputSink, gServiceWindow());
  if (!registered) os::WriteDebugText(L"Can't register raw input device\n");
  return static_cast<bool>(registered);
}

bool UnregisterCPanelRawInput() {
  const auto removed = os::RegisterRawInput(kDigitizerPage, kWholePage, os::kRawInputRemove | os::kRawInputPageOnly,
                                            os::WindowHandle::None);
  if (!removed) Log(L"RegisterRawInputDevices error = %d (0x%X) \n", removed.error(), removed.error());
  return static_cast<bool>(removed);
}

}  // namespace tessaview

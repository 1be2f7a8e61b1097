#include "touch/device_reset.h"

#include <algorithm>

#include "core/trace_log.h"
#include "os/clock.h"
#include "os/hid.h"
#include "touch/raw_input.h"
#include "touch/touch_pad.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kControllerCollection = L"HID\\VEN_GDX&DEV_1515&Col06";
constexpr std::uint32_t kSearchPauseMs = 1000;

/// Enables or disables the device node whose first hardware id is the controller's, spelt exactly so.
os::Status ChangeHidNode(bool enable) {
  const auto nodes = os::OpenHidNodes();
  if (!nodes) return os::Error{nodes.error()};
  const auto ids = os::FirstHardwareIds(*nodes);
  const auto found = std::find(ids.begin(), ids.end(), kControllerCollection);
  if (found == ids.end()) return os::Done{};
  return os::EnableHidNode(*nodes, static_cast<std::size_t>(found - ids.begin()), enable);
}

/// A node that is not there counts as done. False, with a log line, when the system refuses.
bool SetHidDeviceEnabled(bool enable) {
  const auto changed = ChangeHidNode(enable);
  if (!changed) Log(L"SetupDiGetClassDevs error = %d (0x%X) \n", changed.error(), changed.error());
  return static_cast<bool>(changed);
}

}  // namespace

void ResetTouchDevices() {
  if (!UnregisterCPanelRawInput()) {
    Log(L"UnRegisterRawInputDevice Fail");
    return;
  }
  Log(L"UnRegisterRawInputDevice Success \n");

  if (SetHidDeviceEnabled(false)) {
    Log(L"Dissable Device Success\n");
  } else {
    Log(L"Dissable Device Fail\n");
  }
  if (!SetHidDeviceEnabled(true)) {
    Log(L"Enable Device Fail\n");
    return;
  }
  Log(L"Enable Device Success\n");

  while (!SearchTouchPadAgain()) os::Sleep(kSearchPauseMs);
  RegisterCPanelRawInput();
}

}  // namespace tessaview

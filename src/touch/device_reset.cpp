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
os::Result<os::NodeChange> ChangeHidNode(bool enable) {
  const auto nodes = os::OpenHidNodes();
  if (!nodes) return os::Error{nodes.error()};
  const auto ids = os::FirstHardwareIds(*nodes);
  const auto found = std::find(ids.begin(), ids.end(), kControllerCollection);
  if (found == ids.end()) return os::NodeChange::Now;
  return os::EnableHidNode(*nodes, static_cast<std::size_t>(found - ids.begin()), enable);
}

/// A node that is not there counts as done. Fails, with a log line, when the system refuses.
os::Result<os::NodeChange> SetHidDeviceEnabled(bool enable) {
  auto changed = ChangeHidNode(enable);
  if (!changed) Log(L"SetupDiGetClassDevs error = %d (0x%X) \n", changed.error(), changed.error());
  return changed;
}

void TellOfRestart(const os::Result<os::NodeChange>& changed) {
  if (!changed || *changed == os::NodeChange::Now) return;
  Log(L"[TouchReset] The device changes when the machine starts again \n");
}

}  // namespace

void ResetTouchDevices() {
  if (!UnregisterCPanelRawInput()) {
    Log(L"UnRegisterRawInputDevice Fail");
    return;
  }
  Log(L"UnRegisterRawInputDevice Success \n");

  ReleaseTouchPad();
  const auto disabled = SetHidDeviceEnabled(false);
  if (disabled) {
    Log(L"Dissable Device Success\n");
  } else {
    Log(L"Dissable Device Fail\n");
  }
  TellOfRestart(disabled);
  const auto enabled = SetHidDeviceEnabled(true);
  if (!enabled) {
    Log(L"Enable Device Fail\n");
    SearchTouchPadAgain();  // if it could not be disabled either, it is still there
    return;
  }
  Log(L"Enable Device Success\n");
  TellOfRestart(enabled);

  while (!SearchTouchPadAgain()) os::Sleep(kSearchPauseMs);
  RegisterCPanelRawInput();
}

}  // namespace tessaview

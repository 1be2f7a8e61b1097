// Nodes of the "HID" enumerator in the device tree: their hardware ids, and switching them on and off.
#include "os/hid.h"
#include "os/win32/device_list.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

HDEVINFO NativeOf(const HidNodes& nodes) {
  return win32::ToNative<HDEVINFO>(nodes.get());
}

SP_DEVINFO_DATA EmptyNode() {
  SP_DEVINFO_DATA node{};
  node.cbSize = sizeof node;
  return node;
}

/// The property is a list of texts; its first is the most exact id.
std::wstring FirstHardwareId(HDEVINFO nodes, SP_DEVINFO_DATA& node) {
  DWORD size = 0;
  SetupDiGetDeviceRegistryPropertyW(nodes, &node, SPDRP_HARDWAREID, nullptr, nullptr, 0, &size);
  std::vector<wchar_t> ids((size + 1) / sizeof(wchar_t));  // the size may be odd
  if (ids.empty()) return {};
  size = static_cast<DWORD>(ids.size() * sizeof(wchar_t));
  if (SetupDiGetDeviceRegistryPropertyW(nodes, &node, SPDRP_HARDWAREID, nullptr, reinterpret_cast<BYTE*>(ids.data()),
                                        size, nullptr) == FALSE) {
    return {};
  }
  return win32::TextOf(ids);
}

/// Whether the last change of the node is done with the next start of the machine only.
bool TakesRestart(HDEVINFO nodes, SP_DEVINFO_DATA& node) {
  SP_DEVINSTALL_PARAMS_W parameters{};
  parameters.cbSize = sizeof parameters;
  if (SetupDiGetDeviceInstallParamsW(nodes, &node, &parameters) == FALSE) return false;
  return (parameters.Flags & (DI_NEEDRESTART | DI_NEEDREBOOT)) != 0;
}

}  // namespace

void CloseHidNodes(HidNodesHandle nodes) noexcept {
  SetupDiDestroyDeviceInfoList(win32::ToNative<HDEVINFO>(nodes));
}

Result<HidNodes> OpenHidNodes() {
  return win32::OwnOrLastError<HidNodes>(
      SetupDiGetClassDevsW(nullptr, L"HID", nullptr, DIGCF_PRESENT | DIGCF_ALLCLASSES));
}

std::vector<std::wstring> FirstHardwareIds(const HidNodes& nodes) {
  std::vector<std::wstring> ids;
  SP_DEVINFO_DATA node = EmptyNode();
  for (DWORD index = 0; SetupDiEnumDeviceInfo(NativeOf(nodes), index, &node) != FALSE; ++index) {
    ids.push_back(FirstHardwareId(NativeOf(nodes), node));
  }
  return ids;
}

Result<NodeChange> EnableHidNode(const HidNodes& nodes, std::size_t index, bool enable) {
  SP_DEVINFO_DATA node = EmptyNode();
  if (SetupDiEnumDeviceInfo(NativeOf(nodes), static_cast<DWORD>(index), &node) == FALSE) return win32::LastError();

  SP_PROPCHANGE_PARAMS change{};
  change.ClassInstallHeader.cbSize = sizeof change.ClassInstallHeader;
  change.ClassInstallHeader.InstallFunction = DIF_PROPERTYCHANGE;
  change.StateChange = enable ? DICS_ENABLE : DICS_DISABLE;
  change.Scope = DICS_FLAG_GLOBAL;
  change.HwProfile = 0;
  if (SetupDiSetClassInstallParamsW(NativeOf(nodes), &node, &change.ClassInstallHeader, sizeof change) == FALSE) {
    return win32::LastError();
  }
  if (SetupDiCallClassInstaller(DIF_PROPERTYCHANGE, NativeOf(nodes), &node) == FALSE) return win32::LastError();
  return TakesRestart(NativeOf(nodes), node) ? NodeChange::AfterRestart : NodeChange::Now;
}

}  // namespace os

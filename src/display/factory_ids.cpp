#include "display/factory_ids.h"

#include "core/factory_config.h"
#include "core/trace_log.h"
#include "os/registry.h"

namespace tessaview {
namespace {

constexpr std::size_t kLongestId = 127;

/// An id without what follows its last backslash; whole when it has none.
std::wstring WithoutInstance(const std::wstring& id) {
  return id.substr(0, id.rfind(L'\\')).substr(0, kLongestId);
}

}  // namespace

bool GetRegDevicePath(PanelDisplayInfo& info) {
  Log(L"GetRegDevicePath Start");
  info.bPanel.hardwareId.clear();
  info.cPanel.hardwareId.clear();

  const auto b = os::ReadRegistryText(kFactoryConfigKey, L"BPanelHardwareID", kFactoryValueBytes);
  if (!b || b->empty()) {
    Log(L"Get Registry value of BPanelDevicePath failed.\n");
    return false;
  }
  const auto c = os::ReadRegistryText(kFactoryConfigKey, L"CPanelHardwareID", kFactoryValueBytes);
  if (!c || c->empty()) {
    Log(L"Get Registry value of CPanelDevicePath failed.\n");
    return false;
  }
  info.bPanel.hardwareId = WithoutInstance(*b);
  info.cPanel.hardwareId = WithoutInstance(*c);
  return true;
}

}  // namespace tessaview

#include "os/devices.h"
#include "sim/parts.h"

namespace os {

std::vector<std::wstring> PresentDeviceClasses() {
  const auto call = sim::Enter<&PresentDeviceClasses>();
  if (call.failed()) return {};
  std::vector<std::wstring> classes{L"System", L"HIDClass", L"", L"Display"};  // of the third it cannot be read
  for (const auto& screen : sim::Machine().displays.Screens()) {
    if (screen.plugged) classes.push_back(L"Monitor");
  }
  classes.resize(call.Shortened(classes.size()));
  return classes;
}

}  // namespace os

#include "display/path_rotation.h"

#include "core/text.h"
#include "display/display_query.h"
#include "display/display_writes.h"
#include "os/displays.h"

namespace tessaview {
namespace {

constexpr std::int32_t kNothingChanged = -1;
constexpr std::uint32_t kApplyAndKeep =
    os::kSdcApply | os::kSdcUseSuppliedConfig | os::kSdcSaveToDatabase | os::kSdcAllowChanges;

bool IsUsable(const os::DisplayPath& path) {
  return (path.flags & os::kPathActive) != 0 && path.target.statusFlags != 0 && path.target.available;
}

/// True when the key is a whole part of the path's monitor device path, "\\?\DISPLAY#key#…". An empty key never is.
bool CarriesKey(const os::DisplayPath& path, MonitorKey key) {
  if (*key.text == 0 || !IsUsable(path)) return false;
  const auto devicePath = UpperCased(os::QueryTargetName(path).monitorDevicePath);
  return devicePath.find(UpperCased(std::wstring(L"#") + key.text + L"#")) != std::wstring::npos;
}

}  // namespace

std::uint32_t GetMonitorRotation(MonitorKey key) {
  std::uint32_t rotation = 0;
  for (const auto& path : ActivePaths().paths) {
    if (CarriesKey(path, key)) rotation = path.target.rotation;
  }
  return rotation;
}

std::int32_t SetMonitorEx(MonitorKey key) {
  auto configuration = ActivePaths();
  std::int32_t result = kNothingChanged;
  for (auto& path : configuration.paths) {
    if (!CarriesKey(path, key)) continue;
    path.target.rotation = os::kRotation270;
    result = ChangeDisplays(configuration.paths, configuration.modes, kApplyAndKeep);
  }
  return result;
}

}  // namespace tessaview

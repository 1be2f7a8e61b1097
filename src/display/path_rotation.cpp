#include "display/path_rotation.h"

#include "core/letter_case.h"
#include "os/displays.h"

namespace tessaview {
namespace {

constexpr std::int32_t kNothingChanged = -1;
constexpr std::uint32_t kApplyAndKeep =
    os::kSdcApply | os::kSdcUseSuppliedConfig | os::kSdcSaveToDatabase | os::kSdcAllowChanges;

os::DisplayConfiguration ActivePaths() {
  auto active = os::QueryDisplayConfiguration(os::DisplayQuery::OnlyActivePaths, os::DisplayQuery::OnlyActivePaths);
  return active ? std::move(*active) : os::DisplayConfiguration{};
}

bool IsUsable(const os::DisplayPath& path) {
  return (path.flags & os::kPathActive) != 0 && path.target.statusFlags != 0 && path.target.available;
}

/// True when the key is a whole part of the path's monitor device path, "\\?\DISPLAY#key#…". An empty key never is.
bool CarriesKey(const os::DisplayPath& path, const std::wstring& monitorKey) {
  if (monitorKey.empty() || !IsUsable(path)) return false;
  const auto devicePath = UpperCased(os::QueryTargetName(path).monitorDevicePath);
  return devicePath.find(UpperCased(L"#" + monitorKey + L"#")) != std::wstring::npos;
}

}  // namespace

std::uint32_t GetMonitorRotation(const std::wstring& monitorKey) {
  std::uint32_t rotation = 0;
  for (const auto& path : ActivePaths().paths) {
    if (CarriesKey(path, monitorKey)) rotation = path.target.rotation;
  }
  return rotation;
}

std::int32_t SetMonitorEx(const std::wstring& monitorKey) {
  auto configuration = ActivePaths();
  std::int32_t result = kNothingChanged;
  for (auto& path : configuration.paths) {
    if (!CarriesKey(path, monitorKey)) continue;
    path.target.rotation = os::kRotation270;
    result = os::ChangeDisplayConfiguration(configuration.paths, configuration.modes, kApplyAndKeep);
  }
  return result;
}

}  // namespace tessaview

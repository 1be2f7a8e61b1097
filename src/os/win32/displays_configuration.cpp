// Paths, modes and names of the connected displays, as the display-configuration interface tells them.
#include <bit>

#include "os/displays.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

AdapterId FromLuid(const LUID& id) {
  return {id.LowPart, id.HighPart};
}

LUID ToLuid(const AdapterId& id) {
  return {id.low, id.high};
}

DisplayPath FromNative(const DISPLAYCONFIG_PATH_INFO& native) {
  const auto& source = native.sourceInfo;
  const auto& target = native.targetInfo;
  DisplayPath path;
  path.source = {FromLuid(source.adapterId), source.id, source.modeInfoIdx, source.statusFlags};
  path.target.adapter = FromLuid(target.adapterId);
  path.target.id = target.id;
  path.target.modeIndex = target.modeInfoIdx;
  path.target.outputTechnology = static_cast<std::int32_t>(target.outputTechnology);
  path.target.rotation = static_cast<std::uint32_t>(target.rotation);
  path.target.scaling = static_cast<std::uint32_t>(target.scaling);
  path.target.refreshNumerator = target.refreshRate.Numerator;
  path.target.refreshDenominator = target.refreshRate.Denominator;
  path.target.scanLineOrdering = static_cast<std::uint32_t>(target.scanLineOrdering);
  path.target.available = target.targetAvailable != FALSE;
  path.target.statusFlags = target.statusFlags;
  path.flags = native.flags;
  return path;
}

DISPLAYCONFIG_PATH_INFO ToNative(const DisplayPath& path) {
  DISPLAYCONFIG_PATH_INFO native{};
  auto& source = native.sourceInfo;
  source.adapterId = ToLuid(path.source.adapter);
  source.id = path.source.id;
  source.modeInfoIdx = path.source.modeIndex;
  source.statusFlags = path.source.statusFlags;
  auto& target = native.targetInfo;
  target.adapterId = ToLuid(path.target.adapter);
  target.id = path.target.id;
  target.modeInfoIdx = path.target.modeIndex;
  target.outputTechnology = static_cast<DISPLAYCONFIG_VIDEO_OUTPUT_TECHNOLOGY>(path.target.outputTechnology);
  target.rotation = static_cast<DISPLAYCONFIG_ROTATION>(path.target.rotation);
  target.scaling = static_cast<DISPLAYCONFIG_SCALING>(path.target.scaling);
  target.refreshRate = {path.target.refreshNumerator, path.target.refreshDenominator};
  target.scanLineOrdering = static_cast<DISPLAYCONFIG_SCANLINE_ORDERING>(path.target.scanLineOrdering);
  target.targetAvailable = path.target.available ? TRUE : FALSE;
  target.statusFlags = path.target.statusFlags;
  native.flags = path.flags;
  return native;
}

/// One of the device-info requests, answered in a record that starts with the common header; zero when it fails.
template <class Record>
Record DeviceInfo(DISPLAYCONFIG_DEVICE_INFO_TYPE type, const AdapterId& adapter, std::uint32_t id) {
  Record record{};
  record.header.type = type;
  record.header.size = sizeof record;
  record.header.adapterId = ToLuid(adapter);
  record.header.id = id;
  if (DisplayConfigGetDeviceInfo(&record.header) != ERROR_SUCCESS) return {};
  return record;
}

}  // namespace

Result<DisplayConfiguration> QueryDisplayConfiguration(DisplayQuery sizes, DisplayQuery query) {
  UINT32 pathCount = 0;
  UINT32 modeCount = 0;
  LONG code = GetDisplayConfigBufferSizes(static_cast<UINT32>(sizes), &pathCount, &modeCount);
  if (code != ERROR_SUCCESS) return Error{static_cast<std::uint32_t>(code)};

  std::vector<DISPLAYCONFIG_PATH_INFO> paths(pathCount);
  std::vector<DISPLAYCONFIG_MODE_INFO> modes(modeCount);
  DISPLAYCONFIG_TOPOLOGY_ID topology{};
  const bool tellsTopology = query == DisplayQuery::DatabaseCurrent;  // every other query refuses to be asked for it
  code = QueryDisplayConfig(static_cast<UINT32>(query), &pathCount, paths.data(), &modeCount, modes.data(),
                            tellsTopology ? &topology : nullptr);
  if (code != ERROR_SUCCESS) return Error{static_cast<std::uint32_t>(code)};
  paths.resize(pathCount);
  modes.resize(modeCount);

  DisplayConfiguration configuration;
  configuration.paths.reserve(paths.size());
  configuration.modes.reserve(modes.size());
  for (const auto& path : paths) configuration.paths.push_back(FromNative(path));
  for (const auto& mode : modes) configuration.modes.push_back(std::bit_cast<DisplayMode>(mode));
  configuration.topology = static_cast<Topology>(topology);
  return configuration;
}

std::int32_t ChangeDisplayConfiguration(const std::vector<DisplayPath>& paths, const std::vector<DisplayMode>& modes,
                                        std::uint32_t flags) {
  std::vector<DISPLAYCONFIG_PATH_INFO> nativePaths;
  std::vector<DISPLAYCONFIG_MODE_INFO> nativeModes;
  nativePaths.reserve(paths.size());
  nativeModes.reserve(modes.size());
  for (const auto& path : paths) nativePaths.push_back(ToNative(path));
  for (const auto& mode : modes) nativeModes.push_back(std::bit_cast<DISPLAYCONFIG_MODE_INFO>(mode));
  return SetDisplayConfig(static_cast<UINT32>(nativePaths.size()), nativePaths.empty() ? nullptr : nativePaths.data(),
                          static_cast<UINT32>(nativeModes.size()), nativeModes.empty() ? nullptr : nativeModes.data(),
                          flags);
}

std::wstring SourceGdiName(const DisplayPath& path) {
  const auto name = DeviceInfo<DISPLAYCONFIG_SOURCE_DEVICE_NAME>(DISPLAYCONFIG_DEVICE_INFO_GET_SOURCE_NAME,
                                                                 path.source.adapter, path.source.id);
  return win32::TextOf(name.viewGdiDeviceName);
}

TargetName QueryTargetName(const DisplayPath& path) {
  const auto name = DeviceInfo<DISPLAYCONFIG_TARGET_DEVICE_NAME>(DISPLAYCONFIG_DEVICE_INFO_GET_TARGET_NAME,
                                                                 path.target.adapter, path.target.id);
  return {win32::TextOf(name.monitorDevicePath), win32::TextOf(name.monitorFriendlyDeviceName), name.edidManufactureId,
          name.edidProductCodeId};
}

}  // namespace os

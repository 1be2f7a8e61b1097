#include "display/stored_configuration.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "core/console.h"
#include "core/text.h"
#include "core/trace_log.h"
#include "display/configuration_database.h"
#include "display/monitor_list.h"
#include "display/panel_search.h"
#include "display/stored_name.h"
#include "os/registry.h"

namespace tessaview {
namespace {

struct StoredConfiguration {
  std::wstring name;
  std::vector<StoredMonitor> monitors;
};

bool IsKeyOf(const ListedMonitor& monitor, const std::wstring& key) {
  return key == monitor.shortKey || key == monitor.longKey;
}

/// Whether the configuration is for exactly these monitors, in whatever order; two of a kind count as two.
bool IsFor(const StoredConfiguration& stored, std::vector<ListedMonitor> present) {
  if (stored.monitors.size() != present.size()) return false;
  return std::all_of(stored.monitors.begin(), stored.monitors.end(), [&](const StoredMonitor& one) {
    const auto match = std::find_if(present.begin(), present.end(),
                                    [&](const ListedMonitor& monitor) { return IsKeyOf(monitor, one.key); });
    if (match == present.end()) return false;
    present.erase(match);
    return true;
  });
}

bool IsBPanel(const ListedMonitor& monitor) {
  const auto id = UpperCased(gPanelDisplayInfo().bPanel.hardwareId), node = UpperCased(monitor.device.instanceId);
  return !id.empty() && (node + L"\\").rfind(id + L"\\", 0) == 0;
}

/// The stored values of the monitors that `isWanted` picks, as full registry keys.
template <class Wanted>
std::vector<std::wstring> KeysOf(const std::vector<StoredConfiguration>& current,
                                 const std::vector<ListedMonitor>& present, Wanted isWanted) {
  std::vector<std::wstring> keys;
  for (const auto& stored : current) {
    for (const auto& one : stored.monitors) {
      const auto monitor = std::find_if(present.begin(), present.end(),
                                        [&](const ListedMonitor& listed) { return IsKeyOf(listed, one.key); });
      if (monitor == present.end() || !isWanted(*monitor)) continue;
      keys.push_back(std::wstring(kConfigurationDatabase) + L"\\" + stored.name + one.subkey);
    }
  }
  return keys;
}

// ---- Values ----

struct StoredValue {
  const wchar_t* name;
  std::uint32_t wanted;
};

/// A value that cannot be read counts as 0.
std::uint32_t Read(const std::wstring& key, const wchar_t* value) {
  return os::ReadRegistryNumber(key, value).value_or(0);
}

bool AreRight(const std::wstring& key, const std::vector<StoredValue>& values) {
  return std::all_of(values.begin(), values.end(),
                     [&](const StoredValue& value) { return Read(key, value.name) == value.wanted; });
}

/// True when any of them was written.
bool Write(const std::wstring& key, const std::vector<StoredValue>& values) {
  if (!IsAtConsole()) return false;
  bool written = false;
  for (const auto& value : values) {
    if (os::WriteRegistryNumber(key, value.name, value.wanted)) written = true;
  }
  return written;
}

bool RepairBPanel(const std::wstring& key) {
  constexpr std::uint32_t kNotTurned = 1;
  const auto width = Read(key, L"ActiveSize.cx"), height = Read(key, L"ActiveSize.cy");
  const std::vector<StoredValue> values{{L"Rotation", kNotTurned},    {L"DwmClipBox.left", 0},
                                        {L"DwmClipBox.top", 0},       {L"DwmClipBox.bottom", height},
                                        {L"DwmClipBox.right", width}, {L"PrimSurfSize.cx", width},
                                        {L"PrimSurfSize.cy", height}};
  if (AreRight(key, values)) return false;
  Log(L"Panel rotation not correct, reset! \n");
  return Write(key, values);
}

/// The numbers are those of the panel's own stored configuration, whatever it is set to now.
bool RepairCPanel(const std::wstring& key) {
  constexpr std::uint32_t kTurned270 = 4, kLongSide = 1000, kShortSide = 504;
  const std::vector<StoredValue> values{{L"Rotation", kTurned270},
                                        {L"DwmClipBox.left", 0},
                                        {L"DwmClipBox.top", 0},
                                        {L"DwmClipBox.right", kLongSide},
                                        {L"DwmClipBox.bottom", kShortSide},
                                        {L"PrimSurfSize.cx", kShortSide},
                                        {L"PrimSurfSize.cy", kLongSide}};
  if (AreRight(key, values)) return false;
  Log(L"C panel rotation not correct, reset! \n");
  return Write(key, values);
}

}  // namespace

bool RepairStoredPanelConfiguration() {
  const auto present = ListConnectedMonitors();
  std::vector<StoredConfiguration> current;
  for (const auto& name : os::RegistrySubkeys(kConfigurationDatabase)) {
    StoredConfiguration stored{name, MonitorsOf(name)};
    if (IsFor(stored, present)) current.push_back(std::move(stored));
  }

  bool rewritten = false;
  for (const auto& key : KeysOf(current, present, IsBPanel)) {
    Log(L"%ls", key);
    rewritten = RepairBPanel(key) || rewritten;
  }
  const auto isCPanel = [](const ListedMonitor& monitor) { return monitor.shortKey.rfind(kCPanelModel.text, 0) == 0; };
  const auto cPanelKeys = KeysOf(current, present, isCPanel);
  if (cPanelKeys.empty()) Log(L"Current MonitorConfiguration can not find Toshiba monitor ! \n");
  for (const auto& key : cPanelKeys) {
    Log(L"Toshiba : %ls", key);
    rewritten = RepairCPanel(key) || rewritten;
  }
  return rewritten;
}

}  // namespace tessaview

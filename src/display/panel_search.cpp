#include "display/panel_search.h"

#include <algorithm>
#include <vector>

#include "core/numbers.h"
#include "core/state.h"
#include "core/text.h"
#include "core/trace_log.h"
#include "display/display_query.h"
#include "display/factory_ids.h"
#include "os/displays.h"

namespace tessaview {
namespace {

constexpr float kUnscaledDpi = 96.0F;

/// A monitor of the desktop with its scale.
struct MonitorEntry {
  os::Monitor monitor;
  float scale;
};

std::vector<MonitorEntry> ListMonitors() {
  std::vector<MonitorEntry> entries;
  for (auto& monitor : os::DesktopMonitors()) {
    const float scale = static_cast<float>(os::MonitorDpi(monitor.handle)) / kUnscaledDpi;
    entries.push_back({std::move(monitor), scale});
  }
  return entries;
}

/// The smallest scale of all monitors; 0 when there are none.
float MinMonitorScale(const std::vector<MonitorEntry>& entries) {
  float smallest = 0;
  for (const auto& entry : entries) {
    if (smallest == 0 || smallest > entry.scale) smallest = entry.scale;
  }
  return smallest;
}

/// A monitor device path in the form of the factory's ids: upper case, its parts separated by backslashes.
std::wstring ComparisonCopy(const std::wstring& path) {
  auto copy = UpperCased(path);
  std::replace(copy.begin(), copy.end(), L'#', L'\\');
  return copy;
}

/// Notes the path as the panel's if it carries the panel's id.
bool MatchPanel(PanelInfo& panel, const os::DisplayPath& path, const std::wstring& monitorDevicePath,
                const std::wstring& comparisonCopy) {
  if (panel.hardwareId.empty() || comparisonCopy.find(panel.hardwareId) == std::wstring::npos) return false;
  panel.isFound = true;
  panel.gdiDeviceName = os::SourceGdiName(path);
  panel.monitorDevicePath = monitorDevicePath;
  return true;
}

void LogMatch(const std::wstring& comparisonCopy, const std::wstring& hardwareId) {
  Log(L"%ls", comparisonCopy);
  Log(L"%ls", hardwareId);
}

/// Matches every usable path with both panels: one path may be both, and a later match replaces an earlier one.
void FindPanelPaths(PanelDisplayInfo& info) {
  for (const auto& path : ActivePaths().paths) {
    const auto target = os::QueryTargetName(path).monitorDevicePath;
    if (path.flags != os::kPathActive || !path.target.available) continue;
    Log(L"Find target.monitorDevicePath = %ls", target);
    const auto comparisonCopy = ComparisonCopy(target);
    if (MatchPanel(info.bPanel, path, target, comparisonCopy)) {
      Log(L"isBPanelFound = true");
      LogMatch(comparisonCopy, info.bPanel.hardwareId);
    }
    if (MatchPanel(info.cPanel, path, target, comparisonCopy)) {
      Log(L"isCPanelFound = true");
      LogMatch(comparisonCopy, info.cPanel.hardwareId);
    }
  }
}

/// The panel that a GDI name belongs to, the B panel first; null for other displays, and without a name.
PanelInfo* PanelNamed(PanelDisplayInfo& info, const std::wstring& gdiName) {
  if (gdiName.empty()) return nullptr;
  for (auto* const panel : {&info.bPanel, &info.cPanel}) {
    if (panel->isFound && gdiName == panel->gdiDeviceName) return panel;
  }
  return nullptr;
}

/// Divides as the panel views do: in single precision, truncated toward zero.
std::int32_t Divide(std::int32_t pixels, float scale) {
  return TruncateToInt32(static_cast<float>(pixels) / scale);
}

/// Positions are divided by the smallest scale, sizes by the monitor's own: whoever reads them in the log counts on it.
void FillMonitorView(PanelInfo& panel, const MonitorEntry& entry, float minScale) {
  const auto& rc = entry.monitor.monitor;
  panel.monitor = entry.monitor.handle;
  panel.scale = entry.scale;
  panel.rcMonitorLeft = Divide(rc.left, minScale);
  panel.rcMonitorTop = Divide(rc.top, minScale);
  panel.rcMonitorWidth = Divide(rc.right - rc.left, entry.scale);
  panel.rcMonitorHeight = Divide(rc.bottom - rc.top, entry.scale);
}

void FillMonitorViews(PanelDisplayInfo& info, const std::vector<MonitorEntry>& entries) {
  const float minScale = MinMonitorScale(entries);
  for (const auto& entry : entries) {
    auto* const panel = PanelNamed(info, entry.monitor.device);
    if (panel == nullptr) continue;
    FillMonitorView(*panel, entry, minScale);
    const auto left = panel->rcMonitorLeft, top = panel->rcMonitorTop;
    const auto width = panel->rcMonitorWidth, height = panel->rcMonitorHeight;
    if (panel == &info.bPanel) {
      Log(L"bPanelrcMonitorLeft = %d, bPanelrcMonitorTop = %d, bPanelrcMonitorWidth = %d, bPanelrcMonitorHeight = %d",
          left, top, width, height);
    } else {
      Log(L"cPanelrcMonitorLeft = %d, cPanelrcMonitorTop = %d, cPanelrcMonitorWidth = %d, cPanelrcMonitorHeight = %d",
          left, top, width, height);
    }
  }
}

void FillSettingsView(PanelInfo& panel, const os::DisplaySettings& settings) {
  panel.dmPositionX = settings.x;
  panel.dmPositionY = settings.y;
  panel.dmPelsWidth = static_cast<std::int32_t>(settings.width);
  panel.dmPelsHeight = static_cast<std::int32_t>(settings.height);
  panel.displayFrequency = settings.frequency;
  panel.displayOrientation = settings.orientation;
}

void FillSettingsViews(PanelDisplayInfo& info) {
  for (std::uint32_t index = 0; const auto name = os::DisplayDeviceName(index); ++index) {
    const auto settings = os::CurrentDisplaySettings(*name);
    if (!settings) continue;
    auto* const panel = PanelNamed(info, *name);
    if (panel == nullptr) continue;
    FillSettingsView(*panel, *settings);
    const auto [x, y, width, height] = panel->SettingsView();
    if (panel == &info.bPanel) {
      Log(L"bPaneldmPositionX = %d, bPaneldmPositionY = %d, bPaneldmPelsWidth = %d, bPaneldmPelsHeight = %d", x, y,
          width, height);
    } else {
      Log(L"cPaneldmPositionX = %d, cPaneldmPositionY = %d, cPaneldmPelsWidth = %d, cPaneldmPelsHeight = %d", x, y,
          width, height);
    }
  }
}

PanelsFound Found(const PanelDisplayInfo& info) {
  if (info.bPanel.isFound) return info.cPanel.isFound ? PanelsFound::Both : PanelsFound::OnlyB;
  return info.cPanel.isFound ? PanelsFound::OnlyC : PanelsFound::None;
}

std::optional<PanelRect> PlaceIfFound(const PanelInfo& panel) {
  return panel.isFound ? std::optional(panel.SettingsView()) : std::nullopt;
}

/// The panels, and the searches for them, counted as they begin.
struct Panels {
  PanelDisplayInfo info;
  std::uint64_t begun = 0, published = 0;
};

Shared<Panels> gPanels;

/// A search, which another thread may overtake, or the same one in the middle of it: what a later one has found stays.
class Search {
 public:
  Search() {
    gPanels.Update([this](Panels& panels) { number_ = ++panels.begun; });
  }

  void Publish(const PanelDisplayInfo& info) const {
    gPanels.Update([&](Panels& panels) {
      if (number_ < panels.published) return;
      panels.info = info;
      panels.published = number_;
    });
  }

 private:
  std::uint64_t number_ = 0;
};

}  // namespace

PanelDisplayInfo gPanelDisplayInfo() {
  return gPanels.Ask([](const Panels& panels) { return panels.info; });
}

PanelRect gBPanel() {
  return FoundBPanel().value_or(PanelRect{});
}

PanelRect gCPanel() {
  return FoundCPanel().value_or(PanelRect{});
}

os::MonitorHandle bPanelMonitor() {
  return gPanels.Ask([](const Panels& panels) { return panels.info.bPanel.monitor; });
}

os::MonitorHandle cPanelMonitor() {
  return gPanels.Ask([](const Panels& panels) { return panels.info.cPanel.monitor; });
}

std::optional<PanelRect> FoundBPanel() {
  return gPanels.Ask([](const Panels& panels) { return PlaceIfFound(panels.info.bPanel); });
}

std::optional<PanelRect> FoundCPanel() {
  return gPanels.Ask([](const Panels& panels) { return PlaceIfFound(panels.info.cPanel); });
}

void ReadFactoryIds() {
  const Search search;
  PanelDisplayInfo info;
  GetRegDevicePath(info);
  search.Publish(info);
}

PanelsFound EnumDisplayDevice() {
  Log(L"EnumDisplayDevice Start");
  const Search search;
  PanelDisplayInfo info;
  if (GetRegDevicePath(info)) {
    const auto monitors = ListMonitors();
    FindPanelPaths(info);
    FillMonitorViews(info, monitors);
    FillSettingsViews(info);
  } else {
    Log(L"InitGetInfoFromReg failed, return DeviceNotFound.");
  }
  search.Publish(info);
  return Found(info);
}

}  // namespace tessaview

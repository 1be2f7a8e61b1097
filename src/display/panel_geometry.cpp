#include "display/panel_geometry.h"

#include <mutex>

#include "core/trace_log.h"
#include "display/panel_search.h"
#include "os/clock.h"
#include "os/threads.h"

namespace tessaview {
namespace {

constexpr int kMostRefreshes = 30;
constexpr std::uint32_t kRefreshPauseMs = 100;

/// Held for a whole search and the update of the rectangles; guards nothing else.
os::Lock gDisplayLock;

void PublishBPanel(const PanelInfo& found) {
  const auto panel = found.SettingsView();
  Log(L"[InitialDisplay] BPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width, panel.Height);
  gBPanel.set(panel);
  Log(L"[InitialDisplay] Global gBPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width,
      panel.Height);
}

void PublishCPanel(const PanelInfo& found) {
  const auto panel = found.SettingsView();
  Log(L"[InitialDisplay] CPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width, panel.Height);
  gCPanel.set(panel);
  Log(L"[InitialDisplay] Global gCPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width,
      panel.Height);
}

}  // namespace

ProcessWide<PanelRect> gBPanel;
ProcessWide<PanelRect> gCPanel;

void InitialDisplay() {
  const std::lock_guard hold(gDisplayLock);
  EnumDisplayDevice();
  const auto info = gPanelDisplayInfo.get();
  if (info.cPanel.isFound) {
    PublishCPanel(info.cPanel);
  } else {
    gCPanel.set({});
  }
  if (info.bPanel.isFound) {
    PublishBPanel(info.bPanel);
  } else {
    gBPanel.set({});
  }
}

void InitialDisplayUntilCPanelShows() {
  InitialDisplay();
  for (int refreshes = 0; refreshes < kMostRefreshes && !gCPanel.get().HasArea(); ++refreshes) {
    os::Sleep(kRefreshPauseMs);
    InitialDisplay();
  }
}

}  // namespace tessaview

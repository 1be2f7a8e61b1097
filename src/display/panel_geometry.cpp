#include "display/panel_geometry.h"

#include "core/trace_log.h"
#include "display/panel_search.h"
#include "os/clock.h"

namespace tessaview {
namespace {

constexpr int kMostRefreshes = 30;
constexpr std::uint32_t kRefreshPauseMs = 100;

void LogBPanel(const PanelRect& panel) {
  Log(L"[InitialDisplay] BPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width, panel.Height);
  Log(L"[InitialDisplay] Global gBPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width,
      panel.Height);
}

void LogCPanel(const PanelRect& panel) {
  Log(L"[InitialDisplay] CPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width, panel.Height);
  Log(L"[InitialDisplay] Global gCPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", panel.X, panel.Y, panel.Width,
      panel.Height);
}

}  // namespace

void InitialDisplay() {
  EnumDisplayDevice();
  const auto panels = gPanelDisplayInfo();
  if (panels.cPanel.isFound) LogCPanel(panels.cPanel.SettingsView());
  if (panels.bPanel.isFound) LogBPanel(panels.bPanel.SettingsView());
}

void InitialDisplayUntilCPanelShows() {
  InitialDisplay();
  for (int refreshes = 0; refreshes < kMostRefreshes && !gCPanel().HasArea(); ++refreshes) {
    os::Sleep(kRefreshPauseMs);
    InitialDisplay();
  }
}

}  // namespace tessaview

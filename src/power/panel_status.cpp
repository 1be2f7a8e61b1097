#include "power/panel_status.h"

#include "core/settings_file.h"
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "display/panel_orientation.h"
#include "display/projection_mode.h"
#include "uilink/ui_channel.h"

namespace tessaview {
namespace {

/// Brings panels and projection mode up to date, waiting for a C panel that is still coming.
void RefreshDisplayState() {
  InitialDisplayUntilCPanelShows();
  QueryWinPMode();
}

bool IsExtendedLandscape() {
  return isExtendMode.get() && IsCPanelLandscape();
}

void TellPanelOn() {
  isTessaviewPowerOn.set(true);
  SendUiText({.text = L"POWERON"});
}

}  // namespace

ProcessWide<bool> isTessaviewPowerOn;

void TellPanelOff() {
  isTessaviewPowerOn.set(false);
  SendUiText({.text = L"POWEROFF"});
}

void Update_UI_Status() {
  Log(L"[Update_UI_Status] ------- Start ------- \n");
  Log(L"[Update_UI_Status] Read ini = %ls \n", gSettingsPath.get());
  const auto saved = ReadSavedPower();
  RefreshDisplayState();

  if (saved == SavedPower::On && IsExtendedLandscape()) {
    TellPanelOn();
    Log(L"[Update_UI_Status] Send to UI : Power On \n");
  } else if (saved == SavedPower::On) {
    TellPanelOff();
    Log(L"[Update_UI_Status] Send to UI : Power Off (Not extend mode or Not Landscape) \n");
  } else if (saved == SavedPower::Off) {
    TellPanelOff();
    Log(L"[Update_UI_Status] Send to UI : Power Off (ini TessaviewStatus = Off) \n");
  }

  const auto b = gBPanel.get(), c = gCPanel.get();
  Log(L"[Update_UI_Status] Global gBPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", b.X, b.Y, b.Width, b.Height);
  Log(L"[Update_UI_Status] Global gCPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", c.X, c.Y, c.Width, c.Height);
  Log(L"[Update_UI_Status] ------- End ------- \n");
}

void Update_UI_Mask_Status() {
  Log(L"[Update_UI_Mask_Status] ------- Start ------- \n");
  Log(L"[Update_UI_Mask_Status] Read ini = %ls \n", gSettingsPath.get());
  const auto saved = ReadSavedPower();
  RefreshDisplayState();

  if (saved == SavedPower::On && IsExtendedLandscape()) {
    Log(L"[Update_UI_Mask_Status] Display On CLOSEMASK \n");
    SendUiText({.text = L"CLOSEMASK"});
  }
  Log(L"[Update_UI_Mask_Status] ------- End ------- \n");
}

}  // namespace tessaview

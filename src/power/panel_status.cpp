#include "power/panel_status.h"

#include "core/state.h"
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "display/panel_orientation.h"
#include "display/panel_search.h"
#include "display/projection_mode.h"
#include "power/settings_file.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

Shared<bool> gIsToldOn;

/// Brings panels and projection mode up to date, waiting for a C panel that is still coming.
void RefreshDisplayState() {
  InitialDisplayUntilCPanelShows();
  QueryWinPMode();
}

bool IsExtendedLandscape() {
  return isExtendMode() && IsCPanelLandscape();
}

void TellPanelOn() {
  gIsToldOn.set(true);
  TellUi(texts::kPowerOn);
}

}  // namespace

bool isTessaviewPowerOn() {
  return gIsToldOn.get();
}

void TellPanelOff() {
  gIsToldOn.set(false);
  TellUi(texts::kPowerOff);
}

void Update_UI_Status() {
  Log(L"[Update_UI_Status] ------- Start ------- \n");
  Log(L"[Update_UI_Status] Read ini = %ls \n", gSettingsPath());
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

  const auto b = gBPanel(), c = gCPanel();
  Log(L"[Update_UI_Status] Global gBPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", b.X, b.Y, b.Width, b.Height);
  Log(L"[Update_UI_Status] Global gCPanel X: %d, Y: %d, Wdith: %d, Height: %d \n", c.X, c.Y, c.Width, c.Height);
  Log(L"[Update_UI_Status] ------- End ------- \n");
}

void Update_UI_Mask_Status() {
  Log(L"[Update_UI_Mask_Status] ------- Start ------- \n");
  Log(L"[Update_UI_Mask_Status] Read ini = %ls \n", gSettingsPath());
  const auto saved = ReadSavedPower();
  RefreshDisplayState();

  if (saved == SavedPower::On && IsExtendedLandscape()) {
    Log(L"[Update_UI_Mask_Status] Display On CLOSEMASK \n");
    TellUi(texts::kCloseMask);
  }
  Log(L"[Update_UI_Mask_Status] ------- End ------- \n");
}

}  // namespace tessaview

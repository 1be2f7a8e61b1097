#include <utility>

#include "core/console.h"
#include "core/trace_log.h"
#include "display/display_writes.h"
#include "display/panel_nudge.h"
#include "display/panel_orientation.h"
#include "display/panel_placement.h"
#include "display/panel_search.h"
#include "display/projection_mode.h"
#include "display/stored_configuration.h"
#include "os/desktop.h"
#include "os/displays.h"
#include "power/flip_state.h"
#include "power/panel_status.h"
#include "power/win_p_watch.h"
#include "uilink/events/events.h"
#include "windows/companion_apps.h"
#include "windows/full_screen.h"

namespace tessaview {
namespace {

void LogTurnedBPanel(std::uint32_t orientation) {
  switch (orientation) {
    case 1:
      return Log(L"BPanelDisplayOrientation = DMDO_90 \n");
    case 2:
      return Log(L"BPanelDisplayOrientation = DMDO_180 \n");
    case 3:
      return Log(L"BPanelDisplayOrientation = DMDO_270 \n");
    default:
      return Log(L"BPanelDisplayOrientation = Unknown \n");
  }
}

/// The display may have been turned since the panel search saw it upright.
void SetBPanelUprightAgain() {
  Log(L"B Panel Orientation DMDO_DEFAULT set again \n");
  const auto panel = gPanelDisplayInfo().bPanel;
  if (!panel.isFound) return;
  auto mode = os::CurrentDisplaySettings(panel.gdiDeviceName);
  if (!mode || mode->orientation == 0) return;
  if (IsTurnedByQuarter(mode->orientation)) std::swap(mode->width, mode->height);
  mode->orientation = 0;
  ChangeDisplay(panel.gdiDeviceName, *mode);
}

/// After a machine was folded over and back, its displays may still be stored or set as turned.
void MendOrientationAfterFlip() {
  if (!gFlipInfoValid()) return;
  const auto panel = gPanelDisplayInfo().bPanel;
  if (panel.isFound && panel.displayOrientation != 0) return LogTurnedBPanel(panel.displayOrientation);
  Log(L"BPanelDisplayOrientation = DMDO_DEFAULT \n");
  Log(L"Work around Yoga Orientation Issue \n");
  if (isCloneMode()) {
    RepairStoredPanelConfiguration();
  } else {
    SetBPanelUprightAgain();
  }
}

void PayOwedMove() {
  if (!isExtendMode() || !IsAtConsole() || !ClaimWin_P_WindowMoveFlag()) return;
  Log(L"[MoveCPanelMonitorOnePixel] isExtendMode + Win_P_WindowMoveFlag = true");
  MoveCPanelMonitorOnePixel();
}

}  // namespace

void KeepCPanelInPlace() {
  if (!IsAtConsole()) return;  // what cannot be put right now would count as checked
  if (!IsFullScreenWindow(os::RootWindow(os::ForegroundWindow()))) CheckCPanel_Position_Orientation();
}

void OnDisplayChange() {
  Log(L"WM_DISPLAYCHANGE \n");
  Update_UI_Status();
  MendOrientationAfterFlip();
  PayOwedMove();
  KeepCPanelInPlace();
  MoveCompanionsToCPanel();
  FollowDisplaysInRetailDemo();
}

}  // namespace tessaview

#include "display/panel_placement.h"

#include "core/state.h"
#include "core/trace_log.h"
#include "display/monitor_change.h"
#include "display/monitor_keys.h"
#include "display/panel_orientation.h"
#include "display/panel_search.h"
#include "display/path_rotation.h"
#include "os/displays.h"

namespace tessaview {
namespace {

struct Geometry {
  PanelRect b, c;
  friend bool operator==(const Geometry&, const Geometry&) = default;
};

MainThreadOnly<Geometry> gLastChecked;

std::int32_t CentredBelow(const PanelRect& b, const PanelRect& c) {
  return b.X + (b.Width - c.Width) / 2;
}

/// Compares the C panel's top with the B panel's height. A repair moves it to the B panel's bottom edge, which is the
/// same while the B panel lies at the top of the desktop.
bool IsMisplaced(const Geometry& at) {
  return at.c.X != CentredBelow(at.b, at.c) || at.c.Y != at.b.Height;
}

void TurnByPath() {
  Log(L"[CheckCPanel_Position_Orientation] Special Case, set Orientation \n");
  const auto result = SetMonitorEx(kCPanelModel);
  Log(L"[CheckCPanel_Position_Orientation] SetMonitorEx ErrorCode = %d \n", result);
}

void MoveAndTurn(const std::wstring& gdiName, const Geometry& at) {
  const bool done =
      SetMonitorEx(gdiName, {.x = CentredBelow(at.b, at.c), .y = at.b.Y + at.b.Height, .turn = Turn::To270});
  Log(L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = %d \n", done);
}

}  // namespace

void CheckCPanel_Position_Orientation() {
  bool isWrongOrientation = !IsCPanelLandscape();
  bool isWrongPosition = false;
  bool isSpecialCase = false;  // the panel can be turned on its display path only
  const auto panels = gPanelDisplayInfo();

  Geometry at;
  if (panels.bPanel.isFound) {
    at.b = panels.bPanel.SettingsView();
  } else if (!isWrongOrientation) {
    return Log(L"[CheckCPanel_Position_Orientation] GetBPanelParameter FALSE \n");
  } else {
    Log(L"[CheckCPanel_Position_Orientation] SecondOnly and isWrongOrientation, special case \n");
    isSpecialCase = true;
  }
  if (!panels.cPanel.isFound) return Log(L"[CheckCPanel_Position_Orientation] GetCPanelParameter FALSE \n");
  at.c = panels.cPanel.SettingsView();

  if (at.c.HasArea()) {
    isWrongPosition = IsMisplaced(at);
  } else {
    isWrongOrientation = GetMonitorRotation(kCPanelModel) != os::kRotation270;
    isSpecialCase = isSpecialCase || isWrongOrientation;
  }

  if (at == *gLastChecked && !isWrongOrientation) {
    return Log(L"[CheckCPanel_Position_Orientation] Prevent DispalyChange Dead Lock \n");
  }
  *gLastChecked = at;
  if (!isWrongPosition && !isWrongOrientation) return;

  Log(L"[CheckCPanel_Position_Orientation] isWrongPosition = %d, isWrongOrientation = %d \n", isWrongPosition,
      isWrongOrientation);
  if (isSpecialCase) {
    TurnByPath();
  } else {
    MoveAndTurn(panels.cPanel.gdiDeviceName, at);
  }
}

}  // namespace tessaview

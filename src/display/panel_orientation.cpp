#include "display/panel_orientation.h"

#include "core/trace_log.h"
#include "display/panel_search.h"

namespace tessaview {

bool IsCPanelLandscape() {
  const auto panel = gPanelDisplayInfo().cPanel;
  switch (panel.isFound ? panel.displayOrientation : 0) {
    case 0:
      Log(L"CPanelDisplayOrientation = Portrait \n");
      return false;
    case 1:
      Log(L"CPanelDisplayOrientation = Landscape (flipped) \n");
      return false;
    case 2:
      Log(L"CPanelDisplayOrientation = Portrait (flipped) \n");
      return false;
    case 3:
      Log(L"CPanelDisplayOrientation = Landscape \n");
      return true;
    default:
      Log(L"CPanelDisplayOrientation = Unknown \n");
      return false;
  }
}

}  // namespace tessaview

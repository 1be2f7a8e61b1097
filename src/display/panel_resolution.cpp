#include "display/panel_resolution.h"

#include <utility>

#include "core/trace_log.h"
#include "display/display_writes.h"
#include "display/panel_orientation.h"
#include "display/panel_search.h"
#include "os/displays.h"

namespace tessaview {

void SetCPanelResolution(std::int32_t width, std::int32_t height) {
  Log(L"Set Resolution = %d * %d \n", width, height);
  const auto panel = gPanelDisplayInfo().cPanel;
  if (!panel.isFound) return;
  auto mode = os::CurrentDisplaySettings(panel.gdiDeviceName);
  if (!mode) return;
  if (width != 0 || height != 0) {
    mode->width = static_cast<std::uint32_t>(width);
    mode->height = static_cast<std::uint32_t>(height);
  } else if (IsTurnedByQuarter(mode->orientation)) {
    std::swap(mode->width, mode->height);
  }
  ChangeDisplay(panel.gdiDeviceName, *mode);
}

}  // namespace tessaview

#include "uilink/display_commands.h"

#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "display/panel_resolution.h"
#include "power/refresh_rate.h"
#include "uilink/ui_channel.h"

namespace tessaview {

void TellRefreshRates(const UiMessage& /*message*/) {
  InitialDisplay();
  const auto panels = gPanelDisplayInfo.get();
  const auto b = static_cast<std::int32_t>(panels.bPanel.displayFrequency);
  const auto c = static_cast<std::int32_t>(panels.cPanel.displayFrequency);
  Log(L"BPanelDisplayFrequency = %d HZ, CPanelDisplayFrequency = %d HZ \n", b, c);
  SendUiText({.text = L"SETFREQUENCY", .point = {b, c}});
}

void SetRefreshRate(const UiMessage& message) {
  SetPanelRefreshRate(message.point.y);
}

void SetResolution(const UiMessage& message) {
  SetCPanelResolution(message.point.x, message.point.y);
}

}  // namespace tessaview

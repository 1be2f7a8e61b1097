// The UI's commands about the panels' refresh rates and resolution.
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "display/panel_resolution.h"
#include "display/panel_search.h"
#include "power/refresh_rate.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/commands/command.h"

namespace tessaview {
namespace {

void TellRefreshRates(const UiMessage& /*message*/) {
  InitialDisplay();
  const auto panels = gPanelDisplayInfo();
  const auto b = static_cast<std::int32_t>(panels.bPanel.displayFrequency);
  const auto c = static_cast<std::int32_t>(panels.cPanel.displayFrequency);
  Log(L"BPanelDisplayFrequency = %d HZ, CPanelDisplayFrequency = %d HZ \n", b, c);
  TellUi(texts::kRefreshRates, {.point = {b, c}});
}

void SetRefreshRate(const UiMessage& message) {
  SetPanelRefreshRate(message.point.y);
}

void SetResolution(const UiMessage& message) {
  SetCPanelResolution(message.point.x, message.point.y);
}

constexpr UiCommand kDisplayCommands[] = {
    {L"GETFREQUENCY", Match::Exact, TellRefreshRates, nullptr, "answers SETFREQUENCY with both refresh rates"},
    {L"SETFREQUENCY", Match::Exact, SetRefreshRate, nullptr, "point y: 30 or 60 (Hz); sets the C panel's refresh rate"},
    {L"SETRESOLUTION", Match::Exact, SetResolution, nullptr,
     "point: width, height; sets the C panel's resolution; 0 x 0 is the present one, width and height exchanged while "
     "the panel is turned by a quarter"},
};

}  // namespace

UiCommandRows DisplayCommands() {
  return kDisplayCommands;
}

}  // namespace tessaview

#pragma once

#include "display/panel_info.h"

namespace tessaview {

/// The panels' places on the desktop, as the last refresh saw them. Written by InitialDisplay only.
extern ProcessWide<PanelRect> gBPanel;
extern ProcessWide<PanelRect> gCPanel;

/// Searches the panels and refreshes `gBPanel` and `gCPanel`, one caller at a time. Any thread; milliseconds.
void InitialDisplay();

/// Refreshes, and goes on every 100 ms, at most 30 times, while the C panel has no area: after a change of the displays
/// it can take seconds until it shows. Blocks for up to about 3 seconds.
void InitialDisplayUntilCPanelShows();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// Searches the panels, one caller at a time, and logs the places of those that were found. Any thread; milliseconds.
void InitialDisplay();

/// Refreshes, and goes on every 100 ms, at most 30 times, while the C panel has no area: after a change of the displays
/// it can take seconds until it shows. Blocks for up to about 3 seconds.
void InitialDisplayUntilCPanelShows();

}  // namespace tessaview

#pragma once

#include <optional>

#include "display/panel_info.h"

namespace tessaview {

/// Which of the two panels are part of the desktop.
enum class PanelsFound { None = 0, Both = 1, OnlyB = 2, OnlyC = 3 };

/// Searches the active display paths for the panels and publishes what it found as `gPanelDisplayInfo`. The panels are
/// told apart by the factory's hardware ids alone: not by connector, size or order. InitialDisplay lets one caller
/// search at a time; here they may overlap. Any thread; milliseconds.
PanelsFound EnumDisplayDevice();

/// Publishes what the factory says of the panels, before any search. Any thread; microseconds.
void ReadFactoryIds();

/// What the last search found, whole. Any thread.
[[nodiscard]] PanelDisplayInfo gPanelDisplayInfo();

/// The panels' places on the desktop, as the last search saw them; all zero for an absent panel. Any thread; less than
/// a microsecond.
[[nodiscard]] PanelRect gBPanel();
[[nodiscard]] PanelRect gCPanel();

/// The monitors that the panels are, as the last search saw them; None for an absent panel. As quick.
[[nodiscard]] os::MonitorHandle bPanelMonitor();
[[nodiscard]] os::MonitorHandle cPanelMonitor();

/// The same, but nothing for a panel that was not found. A panel that was found may have no area.
[[nodiscard]] std::optional<PanelRect> FoundBPanel();
[[nodiscard]] std::optional<PanelRect> FoundCPanel();

}  // namespace tessaview

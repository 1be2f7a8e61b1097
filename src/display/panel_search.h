#pragma once

#include "display/panel_info.h"

namespace tessaview {

/// Which of the two panels are part of the desktop.
enum class PanelsFound { None = 0, Both = 1, OnlyB = 2, OnlyC = 3 };

/// Searches the active display paths for the panels and publishes what it found as `gPanelDisplayInfo`. The panels are
/// told apart by the factory's hardware ids alone: not by connector, size or order. Takes no lock. Any thread;
/// milliseconds.
PanelsFound EnumDisplayDevice();

}  // namespace tessaview

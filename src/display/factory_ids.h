#pragma once

#include "display/panel_info.h"

namespace tessaview {

/// Reads from the registry by which hardware ids the factory tells the panels apart. Both ids are empty afterwards, and
/// the result is false, unless both are there. What follows an id's last backslash names one piece of hardware and is
/// dropped.
bool GetRegDevicePath(PanelDisplayInfo& info);

}  // namespace tessaview

#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "BLSET", percentage in the handle's low half: stores the level for the present power source. The UI dims the panel
/// itself; what is stored is applied at the next power-on or change of the power source. Warns the UI when battery
/// saver would dim a bright panel.
void SetBacklight(const UiMessage& message);

/// "BLGET": answers "BLSET" with the backlight in percent, 99 when it cannot be read.
void TellBacklight(const UiMessage& message);

/// "POWERSAVERON": battery saver may dim the panel from now on. Re-applies the battery level.
void AllowPowerSaving(const UiMessage& message);

/// "POWERSAVEROFF": it may not. Re-applies the battery level, now without the cap.
void ForbidPowerSaving(const UiMessage& message);

}  // namespace tessaview

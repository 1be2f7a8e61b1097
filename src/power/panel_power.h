#pragma once

namespace tessaview {

/// Switches the C panel on or off through the firmware, remembers the choice in the settings file when the firmware
/// took it, and brings the UI up to date either way. Off also turns the touch surface into a plain touch pad.
/// Blocks for up to about 3 seconds while the panel's geometry settles.
void TessaviewPowerControl(bool on);

/// Switches the C panel as the settings file says; does nothing when no choice is recorded there.
void ApplyIniPowerStatus();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// The UI was last told that the panel is shown ("POWERON"), not that it is not ("POWEROFF"). Any thread.
[[nodiscard]] bool isTessaviewPowerOn();

/// Refreshes panels and projection mode, then tells the UI "POWERON" or "POWEROFF": on means chosen on, extended and
/// landscape. Without a recorded choice nothing is sent. Blocks for up to about 3 seconds while the C panel appears,
/// and until the UI has taken the text.
void Update_UI_Status();

/// Refreshes panels and projection mode, then tells the UI "CLOSEMASK" if the panel is to be shown. Blocks likewise.
void Update_UI_Mask_Status();

/// Tells the UI that the panel is not shown any more, whatever the user's choice.
void TellPanelOff();

}  // namespace tessaview

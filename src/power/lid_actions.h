#pragma once

namespace tessaview {

/// Closing the lid does nothing in the power scheme in force, as the system told last. Main thread.
[[nodiscard]] bool gLidDoNothing();

/// Notes whether closing the lid does nothing, and tells the firmware. Main thread.
void SetLidDoNothing(bool doNothing);

/// Tells the firmware whether closing the lid does nothing, so that it leaves the C panel alone then. Any thread.
void SendLidCloseActionSetting(bool doNothing);

/// Reads what closing the lid does in the power scheme in force, on mains or on battery, and tells the firmware, unless
/// it is an action of no known number. Any thread.
void LidClosedAction(bool onMains);

/// The lid was opened. If closing it does nothing, the desktop has gone on meanwhile, and the C panel is put right:
/// - on a desktop with a virtual monitor it is nudged back into its place;
/// - on any other the UI is told to apply the panel's wallpaper again ("SETWALLPAPER").
/// If closing it does something else, nothing happens. Main thread; can take seconds.
void LidOpenMoveCPanelMonitorOnePixel(bool onMains);

}  // namespace tessaview

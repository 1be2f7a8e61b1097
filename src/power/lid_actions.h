#pragma once

namespace tessaview {

/// Closing the lid does nothing in the power scheme in force, as the system told last. Main thread.
[[nodiscard]] bool gLidDoNothing();

/// Notes that, and tells the firmware. Main thread.
void SetLidDoNothing(bool doNothing);

/// Tells the firmware whether closing the lid does nothing, so that it leaves the C panel alone then. Any thread.
void SendLidCloseActionSetting(bool doNothing);

/// Reads what closing the lid does in the power scheme in force, on mains or on battery, and tells the firmware; an
/// action that is not known tells it nothing. Any thread.
void LidClosedAction(bool onMains);

/// The lid opened: where closing it had done nothing, the desktop went on, and the C panel is nudged back into it, or
/// the UI told to apply its wallpaper again. Main thread; can take seconds.
void LidOpenMoveCPanelMonitorOnePixel(bool onMains);

}  // namespace tessaview

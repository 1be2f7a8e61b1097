#pragma once

namespace tessaview {

// The events by which the rest of the machine's software follows the C panel. Each is opened for the one change; an
// event that nobody created is skipped silently. Any thread.

/// Tells that the C panel's power is wanted on, or off ("Global\NORV PRDXSrv Tessaview Power Event").
void SetPowerEvent();
void ResetPowerEvent();

/// Tells that no switch of the C panel is under way ("Global\NORV PRDXSrv Tessaview Switching Event").
void ResetSwitchingEvent();

}  // namespace tessaview

#pragma once

namespace tessaview {

/// Checks what the configuration database holds of the panels for exactly the monitors that are there now, and puts
/// stored rotations and sizes right. True when it rewrote any. Other sets of monitors are never touched. Main thread;
/// milliseconds.
bool RepairStoredPanelConfiguration();

}  // namespace tessaview

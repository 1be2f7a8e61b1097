#pragma once

namespace tessaview {

/// Brings the machine back to a C panel that is powered and extends the desktop: by the extend topology, or by making
/// the stored configurations with the C panel the newest for the monitors that are there. Main thread; can take
/// seconds.
void ReSetTessaviewMode();

/// Applies the extend topology, as Win+P does.
void SetExtend();

}  // namespace tessaview

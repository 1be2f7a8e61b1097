#pragma once

namespace tessaview {

/// Switches the C panel off when a first-generation machine has started with "PC screen only" projection, which it does
/// not do by itself; then tells the UI and makes the touch surface a touch pad. The user's choice in the settings file
/// stays as it is.
void PowerOffWhenPcScreenOnly();

}  // namespace tessaview

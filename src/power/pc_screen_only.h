#pragma once

namespace tessaview {

/// First-generation machines do not switch the C panel off by themselves when they start with "PC screen only"
/// projection: does it for them, tells the UI and makes the touch surface a touch pad. The user's choice in the
/// settings file stays as it is.
void PowerOffWhenPcScreenOnly();

}  // namespace tessaview

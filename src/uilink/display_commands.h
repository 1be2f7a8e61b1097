#pragma once

#include "uilink/ui_record.h"

namespace tessaview {

/// "GETFREQUENCY": answers "SETFREQUENCY" with the B panel's refresh rate in the point's x and the C panel's in its y,
/// in Hz, 0 for an absent panel.
void TellRefreshRates(const UiMessage& message);

/// "SETFREQUENCY", rate in Hz in the point's y: sets the C panel's refresh rate.
void SetRefreshRate(const UiMessage& message);

/// "SETRESOLUTION", width and height in the point: sets the C panel's resolution.
void SetResolution(const UiMessage& message);

}  // namespace tessaview

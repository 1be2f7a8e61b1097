#pragma once

#include <cstdint>

namespace tessaview {

/// Sets the C panel's resolution, in pixels; 0 x 0 sets the current one again, width and height exchanged while the
/// panel stands at 90 or 270 degrees. Does nothing while the panel is absent. Can take seconds.
void SetCPanelResolution(std::int32_t width, std::int32_t height);

}  // namespace tessaview

#pragma once

#include <cstdint>

namespace tessaview {

/// What a display is connected by, in words, for a DISPLAYCONFIG_VIDEO_OUTPUT_TECHNOLOGY value.
[[nodiscard]] const wchar_t* OutputTechnologyName(std::int32_t technology);

}  // namespace tessaview

#pragma once

#include <cstdint>

namespace tessaview {

// Resources of the program; resources/resource.h has the same numbers for the resource compiler.
inline constexpr std::uint16_t kTitleText = 103, kClassText = 109;
inline constexpr std::uint16_t kLargeIcon = 107, kSmallIcon = 108;
inline constexpr std::uint16_t kMainMenu = 109, kAccelerators = 109;
inline constexpr std::uint16_t kAboutDialog = 103;
inline constexpr std::uint16_t kAboutCommand = 104, kExitCommand = 105;

}  // namespace tessaview

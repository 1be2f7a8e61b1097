#pragma once

#include <cstdint>

namespace tessaview {

// Usages of the HID usage tables that the touch controller's collections are told apart by.
inline constexpr std::uint16_t kGenericDesktopPage = 0x01, kUsageX = 0x30, kUsageY = 0x31;
inline constexpr std::uint16_t kDigitizerPage = 0x0D, kUsageTouchScreen = 0x04, kUsageTouchPad = 0x05;

}  // namespace tessaview

#pragma once

#include <cstdint>

#include "os/types.h"

namespace sim {

// The system's error codes, by their names there without ERROR_.
inline constexpr std::uint32_t kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5, kInvalidHandle = 6,
                               kInvalidParameter = 87, kInsufficientBuffer = 122, kAlreadyExists = 183,
                               kNoMoreItems = 259, kNoToken = 1008, kNotFound = 1168, kNotAllAssigned = 1300,
                               kNoSuchPrivilege = 1313, kPrivilegeNotHeld = 1314, kInvalidWindowHandle = 1400,
                               kCannotFindWindowClass = 1407, kClassAlreadyExists = 1410, kInvalidState = 5023;

/// What a call comes to that may fail with one of them; 0 is a success.
[[nodiscard]] inline os::Status Outcome(std::uint32_t error) {
  if (error != 0) return os::Error{error};
  return os::Done{};
}

}  // namespace sim

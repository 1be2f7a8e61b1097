#pragma once

#include <cstdint>

namespace lab {

/// Opens a device of the lab, sends it one control request and closes it (CreateFileW, DeviceIoControl). True when the
/// driver took the request and filled `reply` whole.
bool ControlDevice(const wchar_t* device, std::uint32_t code, const void* request, std::uint32_t requestSize,
                   void* reply = nullptr, std::uint32_t replySize = 0);

}  // namespace lab

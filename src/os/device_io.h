#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

/// An open device file (HANDLE).
enum class DeviceHandle : std::uint64_t { None = 0 };
void CloseDevice(DeviceHandle device) noexcept;
using Device = Owned<DeviceHandle, CloseDevice>;

/// Opens a device file for reading and writing, shared for both (CreateFileW, GENERIC_READ | GENERIC_WRITE,
/// FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING, no flags). Any thread.
[[nodiscard]] Result<Device> OpenDevice(const wchar_t* path);
template <>
inline constexpr WaitingMark kWaiting<&OpenDevice>{Waiting::Deaf, false};

/// Sends one control request and returns the bytes of the reply (DeviceIoControl, buffered).
/// `code` is the driver's control code; `replySize` is the size offered, in bytes.
/// Empty when the request fails; a reply may be shorter than offered, down to no bytes.
/// Any thread. Blocks for as long as the driver takes (tens of microseconds as a rule).
[[nodiscard]] std::optional<Bytes> Control(const Device& device, std::uint32_t code, BytesView request,
                                           std::size_t replySize);
template <>
inline constexpr WaitingMark kWaiting<&Control>{Waiting::Deaf, false};

/// Writes a variable of the machine's firmware (SetFirmwareEnvironmentVariableW). `guid` is the namespace in
/// "{...}" form. Needs the system-environment privilege. Any thread; milliseconds.
Status WriteFirmwareVariable(const wchar_t* name, const wchar_t* guid, BytesView value);
template <>
inline constexpr WaitingMark kWaiting<&WriteFirmwareVariable>{Waiting::Deaf, false};

}  // namespace os

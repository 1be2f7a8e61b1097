#include "os/device_io.h"

#include <algorithm>

#include "os/win32/win32_support.h"

namespace os {

void CloseDevice(DeviceHandle device) noexcept {
  CloseHandle(win32::ToNative<HANDLE>(device));
}

Result<Device> OpenDevice(const wchar_t* path) {
  return win32::OwnOrLastError<Device>(CreateFileW(
      path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

std::optional<Bytes> Control(const Device& device, std::uint32_t code, BytesView request, std::size_t replySize) {
  Bytes input(request.begin(), request.end());  // the call takes it as writable
  Bytes reply(replySize);
  DWORD returned = 0;
  if (DeviceIoControl(win32::ToNative<HANDLE>(device.get()), code, input.data(), static_cast<DWORD>(input.size()),
                      reply.data(), static_cast<DWORD>(reply.size()), &returned, nullptr) == FALSE) {
    return {};
  }
  reply.resize(std::min<std::size_t>(reply.size(), returned));
  return reply;
}

Status WriteFirmwareVariable(const wchar_t* name, const wchar_t* guid, BytesView value) {
  Bytes copy(value.begin(), value.end());  // the call takes it as writable
  return win32::DoneOrLastError(
      SetFirmwareEnvironmentVariableW(name, guid, copy.data(), static_cast<DWORD>(copy.size())));
}

}  // namespace os

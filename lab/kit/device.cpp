#include "kit/device.h"

#include <windows.h>

namespace lab {

bool ControlDevice(const wchar_t* device, std::uint32_t code, const void* request, std::uint32_t requestSize,
                   void* reply, std::uint32_t replySize) {
  const HANDLE handle = CreateFileW(device, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  DWORD size = 0;
  const bool taken =
      DeviceIoControl(handle, code, const_cast<void*>(request), requestSize, reply, replySize, &size, nullptr) != 0;
  CloseHandle(handle);
  return taken && size == replySize;
}

}  // namespace lab

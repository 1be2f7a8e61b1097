// Raw input devices and the registration for their input.
#include <algorithm>
#include <new>

#include "os/hid.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

constexpr auto kFailed = static_cast<UINT>(-1);

}  // namespace

Result<std::uint32_t> RawInputDeviceCount() {
  UINT count = 0;
  if (GetRawInputDeviceList(nullptr, &count, sizeof(RAWINPUTDEVICELIST)) == kFailed) return win32::LastError();
  return std::uint32_t{count};
}

Result<std::vector<RawDevice>> RawInputDevices(std::uint32_t count) try {
  std::vector<RAWINPUTDEVICELIST> listed(count);
  UINT room = count;
  const UINT got = GetRawInputDeviceList(listed.data(), &room, sizeof(RAWINPUTDEVICELIST));
  if (got == kFailed) return win32::LastError();
  listed.resize(std::min(got, count));

  std::vector<RawDevice> devices;
  devices.reserve(listed.size());
  for (const auto& device : listed) devices.push_back(win32::ToDoor<RawDevice>(device.hDevice));
  return devices;
} catch (const std::bad_alloc&) {
  return Error{kOutOfMemory};
}

std::wstring RawDevicePath(RawDevice device) {
  auto* const native = win32::ToNative<HANDLE>(device);
  UINT size = 0;  // in characters, its NUL included
  if (GetRawInputDeviceInfoW(native, RIDI_DEVICENAME, nullptr, &size) == kFailed) return {};
  std::vector<wchar_t> path(size);
  if (size == 0 || GetRawInputDeviceInfoW(native, RIDI_DEVICENAME, path.data(), &size) == kFailed) return {};
  return win32::TextOf(path);
}

std::optional<RawDeviceIdentity> QueryRawDevice(RawDevice device) {
  RID_DEVICE_INFO info{};
  info.cbSize = sizeof info;
  UINT size = sizeof info;
  if (GetRawInputDeviceInfoW(win32::ToNative<HANDLE>(device), RIDI_DEVICEINFO, &info, &size) == kFailed) return {};
  if (info.dwType != RIM_TYPEHID) return {};
  return RawDeviceIdentity{.vendorId = static_cast<std::uint16_t>(info.hid.dwVendorId),
                           .productId = static_cast<std::uint16_t>(info.hid.dwProductId),
                           .usagePage = info.hid.usUsagePage,
                           .usage = info.hid.usUsage};
}

Status RegisterRawInput(std::uint16_t usagePage, std::uint16_t usage, std::uint32_t flags, WindowHandle target) {
  const RAWINPUTDEVICE device{usagePage, usage, flags, win32::NativeOf(target)};
  return win32::DoneOrLastError(RegisterRawInputDevices(&device, 1, sizeof device));
}

}  // namespace os

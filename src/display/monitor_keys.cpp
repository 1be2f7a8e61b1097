#include "display/monitor_keys.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "core/numbers.h"
#include "core/text.h"
#include "os/ansi.h"

namespace tessaview {
namespace {

constexpr std::size_t kBaseBlock = 128;
constexpr std::size_t kSerialNumber = 12, kWeek = 16, kYear = 17, kChecksum = 127;
constexpr std::uint16_t kFirstYear = 1990;

constexpr std::size_t kDescriptors[] = {54, 72, 90, 108};
constexpr std::size_t kDescriptorTag = 3, kDescriptorText = 5, kDescriptorSize = 18;
constexpr std::uint8_t kSerialTag = 0xFF;
constexpr std::size_t kLongestSerial = 12;

/// The text of a display descriptor: it ends with a line feed unless it fills the descriptor.
std::wstring DescriptorText(os::BytesView descriptor) {
  const auto text = descriptor.subspan(kDescriptorText);
  const auto end = std::find_if(text.begin(), text.end(), [](auto byte) { return byte == 0 || byte == '\n'; });
  return os::FromAnsi({text.begin(), end}).substr(0, kLongestSerial);
}

std::wstring SerialText(os::BytesView edid) {
  for (const auto offset : kDescriptors) {
    const auto descriptor = edid.subspan(offset, kDescriptorSize);
    if (descriptor[kDescriptorTag] == kSerialTag) return DescriptorText(descriptor);
  }
  return std::to_wstring(GetLittleEndian<std::uint32_t>(edid, kSerialNumber));
}

/// The second part of a device instance id, "TSB8888" of "DISPLAY\TSB8888\…".
std::wstring IdText(const std::wstring& instanceId) {
  const auto start = instanceId.find(L'\\');
  if (start == std::wstring::npos) return L"";
  return instanceId.substr(start + 1, instanceId.find(L'\\', start + 1) - start - 1);
}

/// The four characters behind a marker such as "VEN_" in a device id; empty when the marker is not there.
std::wstring Behind(const wchar_t* marker, const std::wstring& deviceId) {
  const auto found = deviceId.find(marker);
  return found == std::wstring::npos ? L"" : deviceId.substr(found + std::wcslen(marker), 4);
}

unsigned UidNumber(const std::wstring& instanceId) {
  const std::wstring marker = L"&UID";
  const auto found = instanceId.find(marker);
  if (found == std::wstring::npos) return 0;
  return static_cast<unsigned>(std::wcstoul(instanceId.c_str() + found + marker.size(), nullptr, 10));
}

template <class... Numbers>
std::wstring Formatted(const wchar_t* format, Numbers... numbers) {
  wchar_t text[64];
  std::swprintf(text, std::size(text), format, numbers...);
  return text;
}

}  // namespace

EdidIdentity ReadEdidIdentity(os::BytesView edid) {
  if (edid.size() < kBaseBlock) return {};
  return {.serial = SerialText(edid),
          .week = edid[kWeek],
          .year = static_cast<std::uint16_t>(kFirstYear + edid[kYear]),
          .checksum = edid[kChecksum]};
}

std::wstring ShortMonitorKey(const std::wstring& instanceId, const EdidIdentity& edid) {
  const auto manufacture = Formatted(L"_%02x_%04x_%02x", edid.week, edid.year, edid.checksum);
  return UpperCased(IdText(instanceId) + edid.serial + manufacture);
}

std::wstring LongMonitorKey(const os::MonitorDevice& device, const EdidIdentity& edid) {
  const auto adapter =
      L"_" + Behind(L"VEN_", device.adapterInstanceId) + L"_" + Behind(L"DEV_", device.adapterInstanceId);
  const auto place = Formatted(L"_%08x_%08x_%x", device.busNumber, device.address, UidNumber(device.instanceId));
  return UpperCased(ShortMonitorKey(device.instanceId, edid) + adapter + place);
}

}  // namespace tessaview

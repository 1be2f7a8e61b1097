#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"

namespace os {

// ---- HID interfaces and devices ----

struct HidInterface {
  enum class Detail { Read, NoSize, NoData };  // how far SetupDiGetDeviceInterfaceDetailW came (size call, data call)
  Detail detail = Detail::Read;
  std::wstring path;  // set when the detail was read
};

/// The present HID interfaces in the system's order (HidD_GetHidGuid, SetupDiGetClassDevsW with DIGCF_PRESENT |
/// DIGCF_DEVICEINTERFACE, SetupDiEnumDeviceInterfaces, SetupDiGetDeviceInterfaceDetailW for size and data). Empty
/// optional when there is no HID class. Any thread; milliseconds.
[[nodiscard]] std::optional<std::vector<HidInterface>> HidInterfaces();

/// An open HID device (HANDLE).
enum class HidHandle : std::uint64_t { None = 0 };
void CloseHid(HidHandle device) noexcept;
using HidDevice = Owned<HidHandle, CloseHid>;

/// Opens a HID device for writing, shared for both (CreateFileW, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
/// OPEN_EXISTING, FILE_FLAG_OVERLAPPED). Any thread.
[[nodiscard]] Result<HidDevice> OpenHid(const std::wstring& path);

struct HidAttributes {
  std::uint16_t vendorId = 0, productId = 0, version = 0;
};

/// A device's ids (HidD_GetAttributes); empty on failure.
[[nodiscard]] std::optional<HidAttributes> QueryHidAttributes(const HidDevice& device);

/// A collection's capabilities (HIDP_CAPS); lengths in bytes, report id included.
struct HidCapabilities {
  std::uint16_t usage = 0, usagePage = 0;
  std::uint16_t inputReportLength = 0, outputReportLength = 0, featureReportLength = 0;
  std::uint16_t inputValueCaps = 0, outputValueCaps = 0, featureValueCaps = 0;  // how many of each
};

/// A collection's capabilities (HidD_GetPreparsedData, HidP_GetCaps, HidD_FreePreparsedData); empty when the preparsed
/// data cannot be had.
[[nodiscard]] std::optional<HidCapabilities> QueryHidCapabilities(const HidDevice& device);

/// One value of a report (HIDP_VALUE_CAPS); a range of usages is told by its first.
struct HidValue {
  std::uint16_t usagePage = 0, usage = 0;
  std::uint8_t reportId = 0;
  std::int32_t logicalMin = 0, logicalMax = 0;
};

/// The input or output values of a collection, in the system's order (HidP_GetValueCaps); none on failure.
[[nodiscard]] std::vector<HidValue> HidInputValues(const HidDevice& device);
[[nodiscard]] std::vector<HidValue> HidOutputValues(const HidDevice& device);

/// Writes one output report, report id first (WriteFile, overlapped). Milliseconds as a rule; false when the device
/// refuses it, or has not taken it after kHidWriteLimitMs (CancelIoEx). Any thread.
bool WriteHidReport(const HidDevice& device, BytesView report);
inline constexpr std::uint32_t kHidWriteLimitMs = 1000;

// ---- Raw input ----

/// A raw input device (HANDLE).
enum class RawDevice : std::uint64_t { None = 0 };

/// How many raw input devices there are (GetRawInputDeviceList without a list).
[[nodiscard]] Result<std::uint32_t> RawInputDeviceCount();

/// At most `count` raw input devices (GetRawInputDeviceList). Fails with kInsufficientBuffer when there are more by
/// now, with kOutOfMemory when there is no room for the list itself.
[[nodiscard]] Result<std::vector<RawDevice>> RawInputDevices(std::uint32_t count);
inline constexpr std::uint32_t kOutOfMemory = 14;  // ERROR_OUTOFMEMORY

/// The interface path of a raw input device (GetRawInputDeviceInfoW, RIDI_DEVICENAME); empty when it is gone.
[[nodiscard]] std::wstring RawDevicePath(RawDevice device);

/// What a raw input device is (RID_DEVICE_INFO_HID).
struct RawDeviceIdentity {
  std::uint16_t vendorId = 0, productId = 0;
  std::uint16_t usagePage = 0, usage = 0;
};

/// What a raw input device is, without opening it (GetRawInputDeviceInfoW, RIDI_DEVICEINFO); empty when it is gone, or
/// is a mouse or a keyboard. Any thread; microseconds.
[[nodiscard]] std::optional<RawDeviceIdentity> QueryRawDevice(RawDevice device);

/// Registers or removes a usage page for raw input (RegisterRawInputDevices with one RAWINPUTDEVICE). `flags` are the
/// kRawInput values.
Status RegisterRawInput(std::uint16_t usagePage, std::uint16_t usage, std::uint32_t flags, WindowHandle target);
inline constexpr std::uint32_t kRawInputRemove = 0x001;    // RIDEV_REMOVE
inline constexpr std::uint32_t kRawInputPageOnly = 0x020;  // RIDEV_PAGEONLY
inline constexpr std::uint32_t kRawInputSink = 0x100;      // RIDEV_INPUTSINK

/// One raw input record as it arrived (RAWINPUT, GetRawInputData with RID_INPUT).
struct RawInput {
  bool sizeMatches = true;  // the record read was as long as announced
  std::uint32_t type = 0;   // 2 = HID
  RawDevice device = RawDevice::None;
  std::uint32_t reportSize = 0;  // bytes of each HID report, report id first
  BytesView reports = {};        // the HID reports, one behind the other; valid during the call only
};
inline constexpr std::uint32_t kRawInputHid = 2;  // RIM_TYPEHID

// ---- Device nodes ----

/// A list of HID device nodes (HDEVINFO).
enum class HidNodesHandle : std::uint64_t { None = 0 };
void CloseHidNodes(HidNodesHandle nodes) noexcept;
using HidNodes = Owned<HidNodesHandle, CloseHidNodes>;

/// The present device nodes of the "HID" enumerator (SetupDiGetClassDevsW, DIGCF_PRESENT | DIGCF_ALLCLASSES).
[[nodiscard]] Result<HidNodes> OpenHidNodes();

/// The first hardware id of each node, in the list's order; empty for a node that has none (SetupDiEnumDeviceInfo,
/// SetupDiGetDeviceRegistryPropertyW, SPDRP_HARDWAREID).
[[nodiscard]] std::vector<std::wstring> FirstHardwareIds(const HidNodes& nodes);

/// When a node is as it was asked to be. A program that has the device open keeps it from being disabled until then.
enum class NodeChange { Now, AfterRestart };

/// Enables or disables the index-th node for good (SP_PROPCHANGE_PARAMS with DIF_PROPERTYCHANGE, DICS_ENABLE or
/// DICS_DISABLE, DICS_FLAG_GLOBAL, profile 0; SetupDiSetClassInstallParamsW, SetupDiCallClassInstaller), and asks
/// whether that takes a restart (SetupDiGetDeviceInstallParamsW, DI_NEEDRESTART or DI_NEEDREBOOT). Seconds at worst.
Result<NodeChange> EnableHidNode(const HidNodes& nodes, std::size_t index, bool enable);

}  // namespace os

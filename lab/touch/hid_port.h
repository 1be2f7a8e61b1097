/* The interface between the HID class driver and the drivers below it, from its documentation: the cross-compiler's
 * headers lack hidport.h. */
#pragma once

#include <ddk/wdm.h>

/* Internal control codes: device type 0x0B (keyboard), any access; METHOD_NEITHER unless said otherwise. */
enum HidPortCode {
  kHidGetDeviceDescriptor = 0x000B0003,
  kHidGetReportDescriptor = 0x000B0007,
  kHidReadReport = 0x000B000B,
  kHidWriteReport = 0x000B000F,
  kHidGetString = 0x000B0013,
  kHidActivateDevice = 0x000B001F,
  kHidDeactivateDevice = 0x000B0023,
  kHidGetDeviceAttributes = 0x000B0027,
  kHidSetFeature = 0x000B0191,      /* METHOD_IN_DIRECT */
  kHidSetOutputReport = 0x000B0195, /* METHOD_IN_DIRECT */
};

#pragma pack(push, 1)
struct HidPortDescriptor {
  UCHAR length, type; /* 9, 0x21 */
  USHORT hidVersion;
  UCHAR country, descriptors;
  UCHAR reportType; /* 0x22 */
  USHORT reportLength;
};
#pragma pack(pop)

struct HidPortAttributes {
  ULONG size;
  USHORT vendorId, productId, version;
  USHORT reserved[11];
};

struct HidPortPacket {
  UCHAR* report;
  ULONG length;
  UCHAR reportId;
};

struct HidPortRegistration {
  ULONG revision; /* 1 */
  DRIVER_OBJECT* driver;
  UNICODE_STRING* registryPath;
  ULONG extensionSize;
  BOOLEAN polled;
  UCHAR reserved[3];
};

/* The device extension that the class driver gives each of the minidriver's devices. */
struct HidPortExtension {
  DEVICE_OBJECT *physicalDevice, *nextDevice;
  void* minidriverExtension;
};

NTSTATUS WINAPI HidRegisterMinidriver(struct HidPortRegistration* registration);

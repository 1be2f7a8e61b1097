/* What the two collections of the touch controller say of themselves. */
#pragma once

#include "touch/hid_port.h"
#include "touch/touch_control.h"

/* One contact as both collections report it: tip switch, contact id, X and Y of 0..4095, contact count. The report is
 * 8 bytes long, its id included. */
#define TOUCH_CONTACT(reportId)                                                                                     \
  0x85, reportId,                                                             /* report id */                       \
      0x09, 0x22, 0xA1, 0x02,                                                 /* finger, logical */                 \
      0x09, 0x42, 0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x01, 0x81, 0x02, /* tip switch, 1 bit */               \
      0x95, 0x07, 0x81, 0x03,                                                 /* padding, 7 bits */                 \
      0x09, 0x51, 0x25, 0x7F, 0x75, 0x08, 0x95, 0x01, 0x81, 0x02,             /* contact id */                      \
      0x05, 0x01, 0x09, 0x30, 0x26, 0xFF, 0x0F, 0x75, 0x10, 0x81, 0x02, 0x09, 0x31, 0x81, 0x02, /* X, Y: 0..4095 */ \
      0xC0,                                                                  /* end of the finger */                \
      0x05, 0x0D, 0x09, 0x54, 0x25, 0x7F, 0x75, 0x08, 0x95, 0x01, 0x81, 0x02 /* contact count */

/* The touch pad: usage 5 of the digitizer page, with the mode switch as output report 3 of 32 bytes, id included. */
static const UCHAR kPadDescriptor[] = {0x05, 0x0D, 0x09, 0x05, 0xA1, 0x01, TOUCH_CONTACT(0x01),
                                       0x85, 0x03, 0x06, 0x00, 0xFF, 0x09, 0x03,
                                       0x15, 0x00, 0x26, 0xFF, 0x00, 0x75, 0x08,
                                       0x95, 0x1F, 0x91, 0x02, 0xC0};

/* The touch screen: usage 4. */
static const UCHAR kScreenDescriptor[] = {0x05, 0x0D, 0x09, 0x04, 0xA1, 0x01, TOUCH_CONTACT(0x04), 0xC0};

struct TouchIdentity {
  const UCHAR* descriptor;
  USHORT descriptorSize, vendorId, productId;
  const WCHAR* deviceId;
};

/* One device node for each collection: Wine makes one node of a device with several. What follows the backslash
 * becomes the hardware id under HID\. Indexed by TouchDevice. */
static const struct TouchIdentity kIdentities[kTouchDevices] = {
    {kPadDescriptor, sizeof kPadDescriptor, 0x5A56, 0x1515, L"ZRVBUS\\VEN_GDX&DEV_1515&Col05"},
    {kScreenDescriptor, sizeof kScreenDescriptor, 0x5A56, 0x1515, L"ZRVBUS\\VEN_GDX&DEV_1515&Col06"},
};

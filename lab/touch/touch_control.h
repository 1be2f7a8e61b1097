/* What the lab's programs ask of the touch bus, \\.\ZRVHIDBUS. C and C++. */
#pragma once

#include <stdint.h>

/* Control codes (device type 0x22, buffered, any access). Each request begins with a uint32_t TouchDevice. */
enum TouchCode {
  kTouchPlug = 0x00223800,
  kTouchUnplug = 0x00223804,
  kTouchInput = 0x00223808,   /* in: device, then one input report, report id first */
  kTouchOutputs = 0x0022380C, /* in: device, uint32_t first report wanted; out: TouchOutputs */
};

enum TouchDevice { kTouchPad = 0, kTouchScreen = 1, kTouchDevices = 2 };

enum TouchLimits { kTouchReportMost = 64, kTouchOutputsKept = 64 };

struct TouchReport {
  uint32_t size;
  uint8_t bytes[kTouchReportMost];
};

/* The output reports written to the device since it was plugged in, from the wanted one on; the last 64 are kept. A
 * wanted one that is still to come means that the device was plugged in anew: all of them. */
struct TouchOutputs {
  uint32_t total, first, count;
  struct TouchReport reports[kTouchOutputsKept];
};

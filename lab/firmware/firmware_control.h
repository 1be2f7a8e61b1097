/* What the lab's programs ask of the firmware driver beside the controller's own requests. C and C++. */
#pragma once

#include <stdint.h>

/* Control codes of \\.\ZRVACPI (device type 0x22, buffered, any access). */
enum FirmwareCode {
  kFirmwareRequest = 0x0022240C,     /* function 0x903: DSTS and DEVS, as on the laptop */
  kFirmwareSetRegister = 0x00223C04, /* in: FirmwareRegister */
  kFirmwareSetFault = 0x00223C08,    /* in: FirmwareFault */
  kFirmwareReadJournal = 0x00223C0C, /* in: uint32_t, first record wanted; out: FirmwareJournal */
  kFirmwareReset = 0x00223C10,       /* factory registers, no faults, empty journal */
};

enum FirmwareMethod { kMethodDsts = 0x53545344, kMethodDevs = 0x53564544 }; /* "DSTS", "DEVS" */

enum FirmwareDeviceId {
  kPanelPower = 0x00050031,
  kBacklight = 0x00050032,
  kGeneration = 0x00050033, /* bit 2 set: the first generation */
  kRefreshRate = 0x00050034,
  kLidClose = 0x00050035,
  kFlipState = 0x00060062, /* bit 0 set: folded over as a tablet */
};

/* What the panel power register reads as. */
enum FirmwarePanelStatus { kPanelOff = 0x00010000, kPanelOn = 0x000100A0 };

struct FirmwareRegister {
  uint32_t id, value;
};

enum FirmwareFaultKind { kNoFault = 0, kRequestFails = 1, kShortReply = 2 };

/* From now on every request for this id fails, or is answered with `replyBytes` (0 to 3) bytes. */
struct FirmwareFault {
  uint32_t id, kind, replyBytes;
};

struct FirmwareRecord {
  uint32_t method, id, value; /* value: of DEVS */
  uint32_t result;            /* the register's answer, whatever a fault left of it */
  uint32_t fault;             /* FirmwareFaultKind that the request met */
};

enum FirmwareLimits { kFirmwareJournalSize = 1024, kFirmwareReplyMost = 1024 };

/* The requests from the wanted one on, oldest first; older ones than the last 1024 are gone. A wanted one that is still
 * to come means that the driver began anew: all of them. */
struct FirmwareJournal {
  uint32_t total; /* requests since the reset */
  uint32_t first; /* index of records[0] */
  uint32_t count;
  struct FirmwareRecord records[kFirmwareJournalSize];
};

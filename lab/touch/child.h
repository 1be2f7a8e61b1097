/* One plugged-in collection of the touch controller, as the bus driver's child device. */
#pragma once

#include "touch/hid_port.h"
#include "touch/touch_control.h"

enum NodeKind { kBusNode, kChildNode }; /* the first field of every device extension of this driver */

struct Child {
  enum NodeKind kind;
  uint32_t which; /* TouchDevice */
  DEVICE_OBJECT* self;
  KSPIN_LOCK lock; /* guards all below */
  BOOLEAN gone;
  LIST_ENTRY waitingReads; /* IRPs of the class driver, each waiting for one input report */
  struct TouchReport inputs[64];
  uint32_t inputsAdded, inputsTaken;
  struct TouchReport outputs[kTouchOutputsKept]; /* a ring */
  uint32_t outputTotal;
};

NTSTATUS CompleteRequest(IRP* irp, NTSTATUS status, ULONG_PTR information);

void InitialiseChild(DEVICE_OBJECT* device, uint32_t which);

/* A request of the HID class driver, passed on by the minidriver. */
NTSTATUS ServeHid(struct Child* child, IRP* irp);

/* A plug-and-play request; `listed` tells whether the bus still has this child. Deletes the device of a child that
 * was removed and is not listed. */
NTSTATUS ServeChildPnp(struct Child* child, IRP* irp, BOOLEAN listed);

/* An input report appears on the device; dropped when 64 wait already. */
void AddInput(struct Child* child, const void* report, ULONG size);

void CopyOutputs(struct Child* child, uint32_t first, struct TouchOutputs* to);

#include "touch/child.h"

#include <string.h>

#include "touch/descriptors.h"

NTSTATUS CompleteRequest(IRP* irp, NTSTATUS status, ULONG_PTR information) {
  irp->IoStatus.Status = status;
  irp->IoStatus.Information = information;
  IoCompleteRequest(irp, IO_NO_INCREMENT);
  return status;
}

void InitialiseChild(DEVICE_OBJECT* device, uint32_t which) {
  struct Child* child = device->DeviceExtension;
  memset(child, 0, sizeof *child);
  child->kind = kChildNode;
  child->which = which;
  child->self = device;
  InitializeListHead(&child->waitingReads);
  KeInitializeSpinLock(&child->lock);
}

/* ---- Input reports ---- */

/* Takes one waiting read that can be answered now: with a report, or because the device is gone (size 0). */
static IRP* TakeAnswerableRead(struct Child* child, struct TouchReport* report) {
  KIRQL level;
  IRP* irp = NULL;
  report->size = 0;
  KeAcquireSpinLock(&child->lock, &level);
  const BOOLEAN hasInput = child->inputsAdded != child->inputsTaken;
  if (!IsListEmpty(&child->waitingReads) && (hasInput || child->gone)) {
    irp = CONTAINING_RECORD(RemoveHeadList(&child->waitingReads), IRP, Tail.Overlay.ListEntry);
    if (!child->gone) *report = child->inputs[child->inputsTaken++ % ARRAYSIZE(child->inputs)];
  }
  KeReleaseSpinLock(&child->lock, level);
  return irp;
}

static void AnswerReads(struct Child* child) {
  struct TouchReport report;
  for (IRP* irp = TakeAnswerableRead(child, &report); irp; irp = TakeAnswerableRead(child, &report)) {
    if (report.size == 0) {
      CompleteRequest(irp, STATUS_DEVICE_NOT_CONNECTED, 0);
      continue;
    }
    const ULONG room = IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.OutputBufferLength;
    const ULONG size = report.size < room ? report.size : room;
    memcpy(irp->UserBuffer, report.bytes, size);
    CompleteRequest(irp, STATUS_SUCCESS, size);
  }
}

static NTSTATUS QueueRead(struct Child* child, IRP* irp) {
  KIRQL level;
  KeAcquireSpinLock(&child->lock, &level);
  const BOOLEAN gone = child->gone;
  if (!gone) {
    IoMarkIrpPending(irp);
    InsertTailList(&child->waitingReads, &irp->Tail.Overlay.ListEntry);
  }
  KeReleaseSpinLock(&child->lock, level);
  if (gone) return CompleteRequest(irp, STATUS_DEVICE_NOT_CONNECTED, 0);
  AnswerReads(child);
  return STATUS_PENDING;
}

void AddInput(struct Child* child, const void* report, ULONG size) {
  KIRQL level;
  KeAcquireSpinLock(&child->lock, &level);
  if (child->inputsAdded - child->inputsTaken < ARRAYSIZE(child->inputs)) {
    struct TouchReport* slot = &child->inputs[child->inputsAdded++ % ARRAYSIZE(child->inputs)];
    slot->size = size < kTouchReportMost ? size : kTouchReportMost;
    memcpy(slot->bytes, report, slot->size);
  }
  KeReleaseSpinLock(&child->lock, level);
  AnswerReads(child);
}

static void Disappear(struct Child* child) {
  KIRQL level;
  KeAcquireSpinLock(&child->lock, &level);
  child->gone = TRUE;
  KeReleaseSpinLock(&child->lock, level);
  AnswerReads(child);
}

/* ---- Output reports ---- */

static NTSTATUS TakeOutput(struct Child* child, IRP* irp) {
  const struct HidPortPacket* packet = irp->UserBuffer;
  KIRQL level;
  KeAcquireSpinLock(&child->lock, &level);
  struct TouchReport* slot = &child->outputs[child->outputTotal++ % kTouchOutputsKept];
  slot->size = packet->length < kTouchReportMost ? packet->length : kTouchReportMost;
  memcpy(slot->bytes, packet->report, slot->size);
  KeReleaseSpinLock(&child->lock, level);
  return CompleteRequest(irp, STATUS_SUCCESS, packet->length);
}

void CopyOutputs(struct Child* child, uint32_t first, struct TouchOutputs* to) {
  KIRQL level;
  KeAcquireSpinLock(&child->lock, &level);
  const uint32_t total = child->outputTotal;
  if (first > total) first = 0;
  if (total - first > kTouchOutputsKept) first = total - kTouchOutputsKept;
  to->total = total;
  to->first = first;
  to->count = total - first;
  for (uint32_t i = 0; i < to->count; i++) to->reports[i] = child->outputs[(first + i) % kTouchOutputsKept];
  KeReleaseSpinLock(&child->lock, level);
}

/* ---- Requests of the HID class driver ---- */

static NTSTATUS Reply(IRP* irp, const void* bytes, ULONG size) {
  const ULONG room = IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.OutputBufferLength;
  if (room < size) return CompleteRequest(irp, STATUS_BUFFER_TOO_SMALL, 0);
  memcpy(irp->UserBuffer, bytes, size);
  return CompleteRequest(irp, STATUS_SUCCESS, size);
}

NTSTATUS ServeHid(struct Child* child, IRP* irp) {
  const struct TouchIdentity* identity = &kIdentities[child->which];
  const struct HidPortDescriptor descriptor = {.length = sizeof descriptor,
                                               .type = 0x21,
                                               .hidVersion = 0x111,
                                               .descriptors = 1,
                                               .reportType = 0x22,
                                               .reportLength = identity->descriptorSize};
  const struct HidPortAttributes attributes = {
      .size = sizeof attributes, .vendorId = identity->vendorId, .productId = identity->productId, .version = 0x100};
  static const WCHAR kName[] = L"Second Screen Touch";

  switch (IoGetCurrentIrpStackLocation(irp)->Parameters.DeviceIoControl.IoControlCode) {
    case kHidGetDeviceDescriptor:
      return Reply(irp, &descriptor, sizeof descriptor);
    case kHidGetReportDescriptor:
      return Reply(irp, identity->descriptor, identity->descriptorSize);
    case kHidGetDeviceAttributes:
      return Reply(irp, &attributes, sizeof attributes);
    case kHidGetString:
      return Reply(irp, kName, sizeof kName);
    case kHidActivateDevice:
    case kHidDeactivateDevice:
      return CompleteRequest(irp, STATUS_SUCCESS, 0);
    case kHidReadReport:
      return QueueRead(child, irp);
    case kHidWriteReport:
    case kHidSetOutputReport:
    case kHidSetFeature:
      return TakeOutput(child, irp);
    default:
      return CompleteRequest(irp, STATUS_NOT_SUPPORTED, 0);
  }
}

/* ---- Plug and play ---- */

/* `first` and `second` (may be null) as a list of texts, or one text when `list` is not wanted; the asker frees it. */
static NTSTATUS ReplyId(IRP* irp, const WCHAR* first, const WCHAR* second, BOOLEAN list) {
  const SIZE_T firstLength = wcslen(first) + 1, secondLength = second ? wcslen(second) + 1 : 0;
  const SIZE_T size = (firstLength + secondLength + (list ? 1 : 0)) * sizeof(WCHAR);
  WCHAR* text = ExAllocatePool(PagedPool, size);
  if (!text) return STATUS_NO_MEMORY;
  memset(text, 0, size);
  memcpy(text, first, firstLength * sizeof(WCHAR));
  if (second) memcpy(text + firstLength, second, secondLength * sizeof(WCHAR));
  irp->IoStatus.Information = (ULONG_PTR)text;
  return STATUS_SUCCESS;
}

static NTSTATUS QueryId(const struct Child* child, IRP* irp) {
  const WCHAR* deviceId = kIdentities[child->which].deviceId;
  static const WCHAR kDriverMatch[] = L"ZRVBUS\\HIDCHILD"; /* what zrvhid.inf matches */
  switch (IoGetCurrentIrpStackLocation(irp)->Parameters.QueryId.IdType) {
    case BusQueryDeviceID:
      return ReplyId(irp, deviceId, NULL, FALSE);
    case BusQueryInstanceID:
      return ReplyId(irp, L"0", NULL, FALSE);
    case BusQueryHardwareIDs:
      return ReplyId(irp, deviceId, kDriverMatch, TRUE);
    case BusQueryCompatibleIDs:
      return ReplyId(irp, kDriverMatch, NULL, TRUE);
    default:
      return irp->IoStatus.Status;
  }
}

NTSTATUS ServeChildPnp(struct Child* child, IRP* irp, BOOLEAN listed) {
  const IO_STACK_LOCATION* at = IoGetCurrentIrpStackLocation(irp);
  NTSTATUS status = irp->IoStatus.Status;
  switch (at->MinorFunction) {
    case IRP_MN_QUERY_ID:
      status = QueryId(child, irp);
      break;
    case IRP_MN_QUERY_CAPABILITIES:
      at->Parameters.DeviceCapabilities.Capabilities->Removable = 1;
      at->Parameters.DeviceCapabilities.Capabilities->SurpriseRemovalOK = 1;
      status = STATUS_SUCCESS;
      break;
    case IRP_MN_START_DEVICE:
      child->gone = FALSE;
      status = STATUS_SUCCESS;
      break;
    case IRP_MN_SURPRISE_REMOVAL:
      Disappear(child);
      status = STATUS_SUCCESS;
      break;
    case IRP_MN_REMOVE_DEVICE: {
      Disappear(child);
      DEVICE_OBJECT* device = child->self;
      CompleteRequest(irp, STATUS_SUCCESS, irp->IoStatus.Information);
      if (!listed) IoDeleteDevice(device);
      return STATUS_SUCCESS;
    }
    case IRP_MN_QUERY_REMOVE_DEVICE:
    case IRP_MN_CANCEL_REMOVE_DEVICE:
    case IRP_MN_QUERY_STOP_DEVICE:
    case IRP_MN_STOP_DEVICE:
      status = STATUS_SUCCESS;
      break;
    default:
      break;
  }
  return CompleteRequest(irp, status, irp->IoStatus.Information);
}

/* The firmware control driver of the virtual laptop: answers \\.\ZRVACPI out of a table of registers, keeps a journal
 * of every request, and can be told to fail or to answer short. */
#include <ddk/wdm.h>
#include <string.h>

#include "firmware/firmware_control.h"

enum { kRegisters = 64 };
static const uint32_t kUnknownRegister = 0xFFFFFFFE; /* the laptop's answer for an id that it does not have */

struct Register {
  uint32_t id, value;
  uint32_t fault, replyBytes;
};

static struct Register registers[kRegisters];
static uint32_t registerCount;
static struct FirmwareRecord journal[kFirmwareJournalSize]; /* a ring, the n-th request at n modulo its size */
static uint32_t journalTotal;
static FAST_MUTEX lock;
static DEVICE_OBJECT* device;

static struct Register* FindRegister(uint32_t id) {
  for (uint32_t i = 0; i < registerCount; i++) {
    if (registers[i].id == id) return &registers[i];
  }
  return NULL;
}

/* The register of this id, made when there is none yet; null when the table is full. */
static struct Register* NeedRegister(uint32_t id) {
  struct Register* found = FindRegister(id);
  if (found || registerCount == kRegisters) return found;
  found = &registers[registerCount++];
  *found = (struct Register){.id = id, .value = kUnknownRegister};
  return found;
}

static void SetRegister(uint32_t id, uint32_t value) {
  struct Register* one = NeedRegister(id);
  if (one) one->value = value;
}

static void ResetFirmware(void) {
  registerCount = 0;
  journalTotal = 0;
  SetRegister(kPanelPower, kPanelOn);
  SetRegister(kBacklight, 116);
  SetRegister(kGeneration, 0);
  SetRegister(kRefreshRate, 1);
  SetRegister(kLidClose, 0);
  SetRegister(kFlipState, 0);
}

/* A value arrives: the panel goes off through its power register and comes on with any backlight level. */
static uint32_t WriteRegister(uint32_t id, uint32_t value) {
  if (id == kPanelPower) {
    SetRegister(id, value == 0 ? kPanelOff : kPanelOn);
  } else {
    SetRegister(id, value);
  }
  if (id == kBacklight) SetRegister(kPanelPower, kPanelOn);
  return 1;
}

static void Record(uint32_t method, uint32_t id, uint32_t value, uint32_t result, uint32_t fault) {
  journal[journalTotal % kFirmwareJournalSize] = (struct FirmwareRecord){method, id, value, result, fault};
  journalTotal++;
}

/* One DSTS (12 bytes) or DEVS (16 bytes): method, length of the arguments, id, value. */
static NTSTATUS Answer(void* buffer, ULONG inputSize, ULONG outputSize, ULONG* replySize) {
  uint32_t request[4] = {0};
  memcpy(request, buffer, inputSize < sizeof request ? inputSize : sizeof request);
  const uint32_t method = request[0], id = request[2];
  const BOOLEAN reads = method == kMethodDsts && inputSize == 12 && request[1] == 4;
  const BOOLEAN writes = method == kMethodDevs && inputSize == 16 && request[1] == 8;
  if (!reads && !writes) return STATUS_INVALID_PARAMETER;

  const struct Register* one = FindRegister(id);
  const struct Register met = one ? *one : (struct Register){.value = kUnknownRegister};
  uint32_t result = met.value;
  if (writes) result = met.fault == kRequestFails ? 0 : WriteRegister(id, request[3]);
  Record(method, id, writes ? request[3] : 0, result, met.fault);
  if (met.fault == kRequestFails) return STATUS_IO_DEVICE_ERROR;

  ULONG size = outputSize < kFirmwareReplyMost ? outputSize : kFirmwareReplyMost;
  if (met.fault == kShortReply && met.replyBytes < size) size = met.replyBytes;
  memset(buffer, 0, size);
  memcpy(buffer, &result, size < sizeof result ? size : sizeof result);
  *replySize = size;
  return STATUS_SUCCESS;
}

static NTSTATUS ReadJournal(void* buffer, ULONG inputSize, ULONG outputSize, ULONG* replySize) {
  struct FirmwareJournal* out = buffer;
  uint32_t first = 0;
  if (inputSize < sizeof first || outputSize < sizeof *out) return STATUS_INVALID_PARAMETER;
  memcpy(&first, buffer, sizeof first);
  if (first > journalTotal) first = 0;
  if (journalTotal - first > kFirmwareJournalSize) first = journalTotal - kFirmwareJournalSize;

  out->total = journalTotal;
  out->first = first;
  out->count = journalTotal - first;
  for (uint32_t i = 0; i < out->count; i++) out->records[i] = journal[(first + i) % kFirmwareJournalSize];
  *replySize = sizeof *out;
  return STATUS_SUCCESS;
}

static NTSTATUS SetFault(const void* buffer, ULONG inputSize) {
  struct FirmwareFault fault;
  if (inputSize < sizeof fault) return STATUS_INVALID_PARAMETER;
  memcpy(&fault, buffer, sizeof fault);
  struct Register* one = NeedRegister(fault.id);
  if (!one) return STATUS_INSUFFICIENT_RESOURCES;
  one->fault = fault.kind;
  one->replyBytes = fault.replyBytes;
  return STATUS_SUCCESS;
}

static NTSTATUS Serve(ULONG code, void* buffer, ULONG inputSize, ULONG outputSize, ULONG* replySize) {
  struct FirmwareRegister one;
  switch (code) {
    case kFirmwareRequest:
      return Answer(buffer, inputSize, outputSize, replySize);
    case kFirmwareSetRegister:
      if (inputSize < sizeof one) return STATUS_INVALID_PARAMETER;
      memcpy(&one, buffer, sizeof one);
      SetRegister(one.id, one.value);
      return STATUS_SUCCESS;
    case kFirmwareSetFault:
      return SetFault(buffer, inputSize);
    case kFirmwareReadJournal:
      return ReadJournal(buffer, inputSize, outputSize, replySize);
    case kFirmwareReset:
      ResetFirmware();
      return STATUS_SUCCESS;
    default:
      return STATUS_INVALID_DEVICE_REQUEST;
  }
}

static NTSTATUS Complete(IRP* irp, NTSTATUS status, ULONG size) {
  irp->IoStatus.Status = status;
  irp->IoStatus.Information = size;
  IoCompleteRequest(irp, IO_NO_INCREMENT);
  return status;
}

static NTSTATUS WINAPI OnOpenOrClose(DEVICE_OBJECT* unused, IRP* irp) {
  (void)unused;
  return Complete(irp, STATUS_SUCCESS, 0);
}

static NTSTATUS WINAPI OnControl(DEVICE_OBJECT* unused, IRP* irp) {
  (void)unused;
  const IO_STACK_LOCATION* at = IoGetCurrentIrpStackLocation(irp);
  ULONG replySize = 0;
  ExAcquireFastMutex(&lock);
  const NTSTATUS status = Serve(at->Parameters.DeviceIoControl.IoControlCode, irp->AssociatedIrp.SystemBuffer,
                                at->Parameters.DeviceIoControl.InputBufferLength,
                                at->Parameters.DeviceIoControl.OutputBufferLength, &replySize);
  ExReleaseFastMutex(&lock);
  return Complete(irp, status, replySize);
}

static void WINAPI OnUnload(DRIVER_OBJECT* unused) {
  (void)unused;
  UNICODE_STRING link;
  RtlInitUnicodeString(&link, L"\\DosDevices\\ZRVACPI");
  IoDeleteSymbolicLink(&link);
  IoDeleteDevice(device);
}

NTSTATUS WINAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* path) {
  (void)path;
  ExInitializeFastMutex(&lock);
  ResetFirmware();
  driver->MajorFunction[IRP_MJ_CREATE] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_CLOSE] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_CLEANUP] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = OnControl;
  driver->DriverUnload = OnUnload;

  UNICODE_STRING name, link;
  RtlInitUnicodeString(&name, L"\\Device\\ZRVACPI");
  RtlInitUnicodeString(&link, L"\\DosDevices\\ZRVACPI");
  NTSTATUS status = IoCreateDevice(driver, 0, &name, FILE_DEVICE_UNKNOWN, 0, FALSE, &device);
  if (status) return status;
  status = IoCreateSymbolicLink(&link, &name);
  if (status) {
    IoDeleteDevice(device);
    return status;
  }
  device->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
  return STATUS_SUCCESS;
}

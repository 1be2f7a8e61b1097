/* The bus driver that the virtual touch controller hangs on: plugs its collections in and out as child devices when the
 * lab asks through \\.\ZRVHIDBUS, feeds them input reports and tells what was written to them. */
#include <string.h>

#include "touch/child.h"
#include "touch/descriptors.h"

struct Bus {
  enum NodeKind kind;
  DEVICE_OBJECT *physicalDevice, *nextDevice;
};

static DRIVER_OBJECT* thisDriver;
static DEVICE_OBJECT *controlDevice, *busDevice;
static FAST_MUTEX childrenLock;
static struct Child* children[kTouchDevices]; /* null when not plugged in */

static struct Child* SetChild(uint32_t which, struct Child* child) {
  ExAcquireFastMutex(&childrenLock);
  struct Child* before = children[which];
  children[which] = child;
  ExReleaseFastMutex(&childrenLock);
  return before;
}

static void TellThatChildrenChanged(void) {
  const struct Bus* bus = busDevice->DeviceExtension;
  IoInvalidateDeviceRelations(bus->physicalDevice, BusRelations);
}

static NTSTATUS Plug(uint32_t which) {
  if (!busDevice || children[which]) return STATUS_INVALID_PARAMETER;

  /* Every device that ever was needs a name of its own: the old one lives on until its last handle closes. */
  static uint32_t serial;
  WCHAR nameText[] = L"\\Device\\ZRVHIDCHILD000";
  serial++;
  for (uint32_t digit = 0, rest = serial; digit < 3; digit++, rest /= 10) {
    nameText[ARRAYSIZE(nameText) - 2 - digit] = (WCHAR)(L'0' + rest % 10);
  }
  UNICODE_STRING name;
  RtlInitUnicodeString(&name, nameText);

  DEVICE_OBJECT* device;
  const NTSTATUS status =
      IoCreateDevice(thisDriver, sizeof(struct Child), &name, FILE_DEVICE_BUS_EXTENDER, 0, FALSE, &device);
  if (status) return status;
  InitialiseChild(device, which);
  device->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
  SetChild(which, device->DeviceExtension);
  TellThatChildrenChanged();
  return STATUS_SUCCESS;
}

static NTSTATUS ServeLab(ULONG code, void* buffer, ULONG inputSize, ULONG outputSize, ULONG* replySize) {
  uint32_t request[2] = {0};
  if (inputSize < sizeof request[0]) return STATUS_INVALID_PARAMETER;
  memcpy(request, buffer, inputSize < sizeof request ? inputSize : sizeof request);
  if (request[0] >= kTouchDevices) return STATUS_INVALID_PARAMETER;
  if (code == kTouchPlug) return Plug(request[0]);

  struct Child* child = children[request[0]];
  if (!child) return STATUS_NO_SUCH_DEVICE;
  switch (code) {
    case kTouchUnplug:
      SetChild(request[0], NULL);
      TellThatChildrenChanged();
      return STATUS_SUCCESS;
    case kTouchInput:
      AddInput(child, (const UCHAR*)buffer + sizeof request[0], inputSize - (ULONG)sizeof request[0]);
      return STATUS_SUCCESS;
    case kTouchOutputs:
      if (outputSize < sizeof(struct TouchOutputs)) return STATUS_BUFFER_TOO_SMALL;
      CopyOutputs(child, request[1], buffer);
      *replySize = sizeof(struct TouchOutputs);
      return STATUS_SUCCESS;
    default:
      return STATUS_INVALID_DEVICE_REQUEST;
  }
}

static NTSTATUS WINAPI OnControl(DEVICE_OBJECT* device, IRP* irp) {
  if (device != controlDevice) return CompleteRequest(irp, STATUS_INVALID_DEVICE_REQUEST, 0);
  const IO_STACK_LOCATION* at = IoGetCurrentIrpStackLocation(irp);
  ULONG replySize = 0;
  const NTSTATUS status = ServeLab(at->Parameters.DeviceIoControl.IoControlCode, irp->AssociatedIrp.SystemBuffer,
                                   at->Parameters.DeviceIoControl.InputBufferLength,
                                   at->Parameters.DeviceIoControl.OutputBufferLength, &replySize);
  return CompleteRequest(irp, status, replySize);
}

static NTSTATUS WINAPI OnInternalControl(DEVICE_OBJECT* device, IRP* irp) {
  struct Child* child = device->DeviceExtension;
  if (device == controlDevice || child->kind != kChildNode)
    return CompleteRequest(irp, STATUS_INVALID_DEVICE_REQUEST, 0);
  return ServeHid(child, irp);
}

static NTSTATUS WINAPI OnOpenOrClose(DEVICE_OBJECT* device, IRP* irp) {
  (void)device;
  return CompleteRequest(irp, STATUS_SUCCESS, 0);
}

/* ---- Plug and play of the bus itself ---- */

static void ListChildren(IRP* irp) {
  DEVICE_RELATIONS* list = ExAllocatePool(PagedPool, sizeof *list + kTouchDevices * sizeof list->Objects[0]);
  if (!list) return;
  list->Count = 0;
  ExAcquireFastMutex(&childrenLock);
  for (uint32_t i = 0; i < kTouchDevices; i++) {
    if (!children[i]) continue;
    ObReferenceObject(children[i]->self);
    list->Objects[list->Count++] = children[i]->self;
  }
  ExReleaseFastMutex(&childrenLock);
  irp->IoStatus.Information = (ULONG_PTR)list;
  irp->IoStatus.Status = STATUS_SUCCESS;
}

static NTSTATUS ServeBusPnp(DEVICE_OBJECT* device, IRP* irp) {
  DEVICE_OBJECT* next = ((const struct Bus*)device->DeviceExtension)->nextDevice;
  const IO_STACK_LOCATION* at = IoGetCurrentIrpStackLocation(irp);
  const UCHAR what = at->MinorFunction;
  if (what == IRP_MN_QUERY_DEVICE_RELATIONS && at->Parameters.QueryDeviceRelations.Type == BusRelations) {
    ListChildren(irp);
  }
  if (what == IRP_MN_START_DEVICE || what == IRP_MN_SURPRISE_REMOVAL || what == IRP_MN_REMOVE_DEVICE) {
    irp->IoStatus.Status = STATUS_SUCCESS;
  }
  IoSkipCurrentIrpStackLocation(irp);
  const NTSTATUS status = IoCallDriver(next, irp);
  if (what == IRP_MN_REMOVE_DEVICE) {
    IoDetachDevice(next);
    IoDeleteDevice(device);
    busDevice = NULL;
  }
  return status;
}

static NTSTATUS WINAPI OnPnp(DEVICE_OBJECT* device, IRP* irp) {
  if (device == controlDevice) return CompleteRequest(irp, STATUS_INVALID_DEVICE_REQUEST, 0);
  struct Child* child = device->DeviceExtension;
  if (child->kind == kChildNode) return ServeChildPnp(child, irp, children[child->which] == child);
  return ServeBusPnp(device, irp);
}

static NTSTATUS WINAPI OnAddDevice(DRIVER_OBJECT* driver, DEVICE_OBJECT* physicalDevice) {
  DEVICE_OBJECT* device;
  const NTSTATUS status = IoCreateDevice(driver, sizeof(struct Bus), NULL, FILE_DEVICE_BUS_EXTENDER, 0, FALSE, &device);
  if (status) return status;
  struct Bus* bus = device->DeviceExtension;
  bus->kind = kBusNode;
  bus->physicalDevice = physicalDevice;
  bus->nextDevice = IoAttachDeviceToDeviceStack(device, physicalDevice);
  busDevice = device;
  device->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
  return STATUS_SUCCESS;
}

static void WINAPI OnUnload(DRIVER_OBJECT* driver) {
  (void)driver;
  UNICODE_STRING link;
  RtlInitUnicodeString(&link, L"\\DosDevices\\ZRVHIDBUS");
  IoDeleteSymbolicLink(&link);
  IoDeleteDevice(controlDevice);
}

NTSTATUS WINAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* path) {
  (void)path;
  thisDriver = driver;
  ExInitializeFastMutex(&childrenLock);
  driver->MajorFunction[IRP_MJ_CREATE] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_CLOSE] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_CLEANUP] = OnOpenOrClose;
  driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = OnControl;
  driver->MajorFunction[IRP_MJ_INTERNAL_DEVICE_CONTROL] = OnInternalControl;
  driver->MajorFunction[IRP_MJ_PNP] = OnPnp;
  driver->DriverExtension->AddDevice = OnAddDevice;
  driver->DriverUnload = OnUnload;

  UNICODE_STRING name, link;
  RtlInitUnicodeString(&name, L"\\Device\\ZRVHIDBUS");
  RtlInitUnicodeString(&link, L"\\DosDevices\\ZRVHIDBUS");
  NTSTATUS status = IoCreateDevice(driver, 0, &name, FILE_DEVICE_UNKNOWN, 0, FALSE, &controlDevice);
  if (status) return status;
  status = IoCreateSymbolicLink(&link, &name);
  if (status) return status;
  controlDevice->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
  return STATUS_SUCCESS;
}

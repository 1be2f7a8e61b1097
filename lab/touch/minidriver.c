/* The HID minidriver of the touch controller: hands every request of the HID class driver down to the bus's device. */
#include "touch/hid_port.h"

static NTSTATUS WINAPI PassDown(DEVICE_OBJECT* device, IRP* irp) {
  const struct HidPortExtension* own = device->DeviceExtension;
  IoSkipCurrentIrpStackLocation(irp);
  return IoCallDriver(own->nextDevice, irp);
}

static NTSTATUS WINAPI PassPowerDown(DEVICE_OBJECT* device, IRP* irp) {
  const struct HidPortExtension* own = device->DeviceExtension;
  PoStartNextPowerIrp(irp);
  IoSkipCurrentIrpStackLocation(irp);
  return PoCallDriver(own->nextDevice, irp);
}

static NTSTATUS WINAPI OnAddDevice(DRIVER_OBJECT* driver, DEVICE_OBJECT* device) {
  (void)driver;
  device->Flags &= ~(ULONG)DO_DEVICE_INITIALIZING;
  return STATUS_SUCCESS;
}

static void WINAPI OnUnload(DRIVER_OBJECT* driver) {
  (void)driver;
}

NTSTATUS WINAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* path) {
  driver->MajorFunction[IRP_MJ_INTERNAL_DEVICE_CONTROL] = PassDown;
  driver->MajorFunction[IRP_MJ_PNP] = PassDown;
  driver->MajorFunction[IRP_MJ_POWER] = PassPowerDown;
  driver->DriverExtension->AddDevice = OnAddDevice;
  driver->DriverUnload = OnUnload;
  struct HidPortRegistration registration = {.revision = 1, .driver = driver, .registryPath = path};
  return HidRegisterMinidriver(&registration);
}

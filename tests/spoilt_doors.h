#pragma once

#include "os/device_io.h"
#include "os/displays.h"
#include "os/files.h"
#include "os/kernel_objects.h"
#include "os/messages.h"
#include "os/registry.h"
#include "os/services.h"
#include "os/settings_store.h"
#include "os/threads.h"
#include "sim/laptop.h"

// The door functions that the robustness tests spoil.
namespace support {

/// One door function that can be spoilt.
struct Door {
  void (*fail)(sim::Faults&, const sim::Failure&);
  void (*slow)(sim::Faults&, std::uint32_t ms);
  void (*shorten)(sim::Faults&, std::size_t size);
};

template <auto Function>
inline constexpr Door kDoor{[](sim::Faults& faults, const sim::Failure& failure) { faults.Fail<Function>(failure); },
                            [](sim::Faults& faults, std::uint32_t ms) { faults.Slow<Function>(ms); },
                            [](sim::Faults& faults, std::size_t size) { faults.Short<Function>(size); }};

// Not among them: what the window itself hangs on, reading the settings (what cannot be read is replaced by its
// default), and starting a program, whose refusal leaves two handles open on purpose.
inline constexpr Door kDoors[] = {
    kDoor<&os::OpenDevice>,
    kDoor<&os::Control>,
    kDoor<&os::WriteFirmwareVariable>,
    kDoor<&os::QueryDisplayConfiguration>,
    kDoor<&os::SourceGdiName>,
    kDoor<&os::QueryTargetName>,
    kDoor<&os::DesktopMonitors>,
    kDoor<&os::MonitorDpi>,
    kDoor<&os::DisplayDeviceName>,
    kDoor<&os::CurrentDisplaySettings>,
    kDoor<&os::ChangeDisplaySettings>,
    kDoor<&os::ForegroundWindow>,
    kDoor<&os::WindowClassName>,
    kDoor<&os::FindTopWindow>,
    kDoor<&os::WindowProcessId>,
    kDoor<&os::HidInterfaces>,
    kDoor<&os::OpenHid>,
    kDoor<&os::QueryHidAttributes>,
    kDoor<&os::QueryHidCapabilities>,
    kDoor<&os::HidInputValues>,
    kDoor<&os::HidOutputValues>,
    kDoor<&os::WriteHidReport>,
    kDoor<&os::RawInputDeviceCount>,
    kDoor<&os::RawInputDevices>,
    kDoor<&os::RawDevicePath>,
    kDoor<&os::RegisterRawInput>,
    kDoor<&os::OpenHidNodes>,
    kDoor<&os::FirstHardwareIds>,
    kDoor<&os::EnableHidNode>,
    kDoor<&os::IsSetupComplete>,
    kDoor<&os::WaitForSetup>,
    kDoor<&os::Sessions>,
    kDoor<&os::SessionUserToken>,
    kDoor<&os::CreateEnvironment>,
    kDoor<&os::WaitForProcess>,
    kDoor<&os::ProcessExitCode>,
    kDoor<&os::ProcessImagePath>,
    kDoor<&os::JoinCom>,
    kDoor<&os::CreateActivationManager>,
    kDoor<&os::ActivateApplication>,
    kDoor<&os::ReadRegistryText>,
    kDoor<&os::WriteRegistryText>,
    kDoor<&os::RegisterPowerSetting>,
    kDoor<&os::RegisterSessionEvents>,
    kDoor<&os::StartTimer>,
    kDoor<&os::QueryPowerStatus>,
    kDoor<&os::ServiceState>,
    kDoor<&os::OpenNamedEvent>,
    kDoor<&os::CreateNamedMutex>,
    kDoor<&os::PostToWindow>,
    kDoor<&os::SendCopyData>,
    kDoor<&os::SendCopyDataTimeout>,
    kDoor<&os::WriteProfileText>,
    kDoor<&os::StartThread>,
    kDoor<&os::ReadFileVersion>,
    kDoor<&os::OwnProgramPath>,
    kDoor<&os::OverwriteByCopy>,
    kDoor<&os::Impersonate>,
    kDoor<&os::OwnToken>,
    kDoor<&os::EnablePrivilege>,
};

}  // namespace support

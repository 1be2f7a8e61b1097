#pragma once

#include "sim/laptop.h"
#include "tests/door.h"

// The door functions that the robustness tests spoil.
namespace support {

/// One door function that can be spoilt.
struct Door {
  void (*fail)(sim::Faults&, const sim::Failure&);
  void (*slow)(sim::Faults&, std::uint32_t ms);
  void (*shorten)(sim::Faults&, std::size_t size);
};

template <auto... Functions>
inline constexpr Door kDoorsOf[] = {
    {[](sim::Faults& faults, const sim::Failure& failure) { faults.Fail<Functions>(failure); },
     [](sim::Faults& faults, std::uint32_t ms) { faults.Slow<Functions>(ms); },
     [](sim::Faults& faults, std::size_t size) { faults.Short<Functions>(size); }}...};

// Left out is what would spoil what is checked in the end: making the window, without which there is no controller;
// finding and reading the settings, as a value that cannot be read is replaced by its default; starting a program, as
// a refusal leaves two handles open on purpose; the mutex, whose refusal may mean that another controller is there.
// Left out is also what only sets up watches, the watchdog and the trace.
inline constexpr const auto& kDoors = kDoorsOf<
    &os::OpenDevice, &os::Control, &os::WriteFirmwareVariable, &os::QueryDisplayConfiguration, &os::SourceGdiName,
    &os::QueryTargetName, &os::DesktopMonitors, &os::MonitorDpi, &os::DisplayDeviceName, &os::CurrentDisplaySettings,
    &os::ChangeDisplaySettings, &os::ForegroundWindow, &os::WindowClassName, &os::FindTopWindow, &os::WindowProcessId,
    &os::HidInterfaces, &os::OpenHid, &os::QueryHidAttributes, &os::QueryHidCapabilities, &os::HidInputValues,
    &os::HidOutputValues, &os::WriteHidReport, &os::RawInputDeviceCount, &os::RawInputDevices, &os::RawDevicePath,
    &os::QueryRawDevice, &os::RegisterRawInput, &os::OpenHidNodes, &os::FirstHardwareIds, &os::EnableHidNode,
    &os::IsSetupComplete, &os::WaitForSetup, &os::Sessions, &os::OwnSession, &os::ConsoleSession, &os::SessionUserToken,
    &os::CreateEnvironment, &os::WaitForProcess, &os::ProcessExitCode, &os::ProcessImagePath, &os::JoinCom,
    &os::CreateActivationManager, &os::ActivateApplication, &os::ReadRegistryText, &os::WriteRegistryText,
    &os::RegisterPowerSetting, &os::RegisterSessionEvents, &os::StartTimer, &os::QueryPowerStatus, &os::ServiceState,
    &os::OpenNamedEvent, &os::PostToWindow, &os::SendCopyData, &os::SendCopyDataTimeout, &os::WriteProfileText,
    &os::StartThread, &os::ReadFileVersion, &os::OwnProgramPath, &os::ReadFileStart, &os::OverwriteByCopy,
    &os::Impersonate, &os::OwnToken, &os::EnablePrivilege, &os::RegistrySubkeys, &os::ReadRegistryNumber,
    &os::WriteRegistryNumber, &os::WriteRegistryLongNumber, &os::PresentDeviceClasses, &os::ActivePowerScheme,
    &os::LidCloseActionOf, &os::ChangeDisplayConfiguration, &os::MonitorDevices, &os::WindowRect, &os::RootWindow,
    &os::IsKeyDown, &os::FindChildWindow, &os::TopWindows, &os::WindowAt, &os::RootOwner, &os::IsWindow,
    &os::WindowTitle, &os::WindowStyle, &os::WindowExtendedStyle, &os::IsWindowVisible, &os::IsWindowMinimized,
    &os::MonitorOf, &os::ShowWindow, &os::MoveWindow, &os::GetPlacement, &os::SetPlacement, &os::SetTopmost,
    &os::SetWindowExtendedStyle, &os::AnswersWithin, &os::AskToClose, &os::AskToShow, &os::OpenToAwaitIdle,
    &os::AwaitInputIdle, &os::OpenToEnd, &os::TerminateProcess, &os::QueryProcessPackage, &os::ProductNames,
    &os::CursorPosition, &os::SetCursorPosition>;

}  // namespace support

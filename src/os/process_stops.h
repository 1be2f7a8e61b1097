#pragma once

#include <cstdint>
#include <string>

#include "os/types.h"
#include "os/waiting.h"

// Windows management (WMI) over COM, which tells of processes that end. All of it on one thread.
namespace os {

/// Joins the calling thread to COM's multithreaded apartment (CoInitializeEx, COINIT_MULTITHREADED), and leaves it
/// again (CoUninitialize).
Status JoinComMultithreaded();
void LeaveCom();

/// Sets how this process proves its identity to COM servers (CoInitializeSecurity: default authentication,
/// RPC_C_IMP_LEVEL_IMPERSONATE). Once a process.
Status InitializeComSecurity();
template <>
inline constexpr WaitingMark kWaiting<&InitializeComSecurity>{Waiting::Deaf, false};

/// The way to the management services (IWbemLocator).
enum class LocatorHandle : std::uint64_t { None = 0 };
void ReleaseLocator(LocatorHandle locator) noexcept;
using ManagementLocator = Owned<LocatorHandle, ReleaseLocator>;

/// Creates the locator in this process (CoCreateInstance of WbemLocator, CLSCTX_INPROC_SERVER).
[[nodiscard]] Result<ManagementLocator> CreateManagementLocator();
template <>
inline constexpr WaitingMark kWaiting<&CreateManagementLocator>{Waiting::Deaf, false};

/// The management services of one namespace (IWbemServices).
enum class ManagementHandle : std::uint64_t { None = 0 };
void ReleaseManagement(ManagementHandle services) noexcept;
using Management = Owned<ManagementHandle, ReleaseManagement>;

/// Connects to a namespace as this process (ConnectServer without user, password, locale and authority). Seconds at
/// worst.
[[nodiscard]] Result<Management> ConnectToManagement(const ManagementLocator& locator, const wchar_t* nameSpace);
template <>
inline constexpr WaitingMark kWaiting<&ConnectToManagement>{Waiting::Deaf};

/// Sets how calls of the services are made (CoSetProxyBlanket: RPC_C_AUTHN_WINNT, no authorisation,
/// RPC_C_AUTHN_LEVEL_CALL, RPC_C_IMP_LEVEL_IMPERSONATE).
Status SetManagementBlanket(const Management& services);
template <>
inline constexpr WaitingMark kWaiting<&SetManagementBlanket>{Waiting::Deaf};

/// What a running query tells. Each is called on a thread of the system's, one event after the other: what takes long
/// holds back the events behind it. None may be null.
struct ProcessStopEvents {
  void (*stopped)(const std::string& processName);  // in the system's 8-bit code page; empty when it cannot be told
  void (*completed)(std::uint32_t result);          // the query ended (SetStatus, WBEM_STATUS_COMPLETE)
  void (*progressed)();                             // SetStatus, WBEM_STATUS_PROGRESS
};

/// A running query for processes that end (the stub of an event sink, its apartment and the services).
enum class SubscriptionHandle : std::uint64_t { None = 0 };
void CancelSubscription(SubscriptionHandle subscription) noexcept;
using ProcessStopSubscription = Owned<SubscriptionHandle, CancelSubscription>;

/// Asks for the events of a WQL query of type Win32_ProcessStopTrace, until the subscription is closed
/// (UnsecuredApartment, CreateObjectStub, ExecNotificationQueryAsync; CancelAsyncCall).
[[nodiscard]] Result<ProcessStopSubscription> SubscribeToProcessStops(const Management& services, const wchar_t* query,
                                                                      const ProcessStopEvents& events);
template <>
inline constexpr WaitingMark kWaiting<&SubscribeToProcessStops>{Waiting::Deaf};

}  // namespace os

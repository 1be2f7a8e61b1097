#include "core/log_failure.h"
#include "core/log_format.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "lifecycle/ui_watchdog.h"
#include "lifecycle/watches.h"
#include "os/kernel_objects.h"
#include "os/process_stops.h"
#include "os/trace.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kNamespace = L"ROOT\\CIMV2";
constexpr const wchar_t* kQuery = L"SELECT * FROM Win32_ProcessStopTrace";

void OnQueryCompleted(std::uint32_t result) {
  wchar_t text[kLogTextSize];
  FormatLogText<std::uint32_t>(text, L"Call complete. hResult = 0x%X\n", result);
  os::WriteDebugText(text);
}

void OnQueryProgressed() {
  os::WriteDebugText(L"Call in progress.\n");
}

constexpr os::ProcessStopEvents kEvents = {
    .stopped = EndProcess, .completed = OnQueryCompleted, .progressed = OnQueryProgressed};

/// What is set up; the last is let go first.
struct Watch {
  os::ManagementLocator locator;
  os::Management services;
  os::ProcessStopSubscription subscription;
};

/// This thread's part in COM, if it has one.
class ComMembership {
 public:
  ComMembership() : joined_(os::JoinComMultithreaded()) {
    if (joined_) return;
    os::WriteDebugText(L"Failed to initialize COM library\n");
    LogFailure(L"The watchdog cannot join COM", joined_);
  }
  ~ComMembership() {
    if (joined_) os::LeaveCom();
  }
  ComMembership(const ComMembership&) = delete;
  ComMembership& operator=(const ComMembership&) = delete;

  explicit operator bool() const { return static_cast<bool>(joined_); }

 private:
  os::Status joined_;
};

bool Connect(Watch& watch) {
  auto locator = os::CreateManagementLocator();
  if (!locator) {
    os::WriteDebugText(L"Failed to create IWbemLocator object.\n");
    LogFailure(L"The way to Windows management cannot be had", locator);
    return false;
  }
  watch.locator = std::move(*locator);
  auto services = os::ConnectToManagement(watch.locator, kNamespace);
  if (!services) {
    os::WriteDebugText(L"Could not connect. Error code\n");
    LogFailure(L"Windows management cannot be connected to", services);
    return false;
  }
  os::WriteDebugText(L"Connected to ROOT\\CIMV2 WMI namespace\n");
  watch.services = std::move(*services);
  return true;
}

bool SetUp(Watch& watch) {
  if (const auto secured = os::InitializeComSecurity(); !secured) {
    os::WriteDebugText(L"Failed to initialize security\n");
    LogFailure(L"The process cannot set its COM security", secured);
    return false;
  }
  if (!Connect(watch)) return false;
  // Not the end: the query tells whether the services can be asked.
  LogFailure(L"Calls of Windows management cannot be secured", os::SetManagementBlanket(watch.services));
  auto subscription = os::SubscribeToProcessStops(watch.services, kQuery, kEvents);
  if (!subscription) {
    os::WriteDebugText(L"ExecNotificationQueryAsync failed\n");
    LogFailure(L"Ended processes cannot be asked for", subscription);
    return false;
  }
  watch.subscription = std::move(*subscription);
  return true;
}

/// Nobody signals this event: whoever waits for it lives as long as the process.
void WaitForever() {
  (void)os::AwaitEvent(os::NewEvent());  // returns only where no event could be made; then there is nothing to do
}

void HoldSubscription() {
  const ComMembership com;
  Watch watch;
  const bool isSetUp = com && SetUp(watch);
  Log(L"[wWinMain] wmiEndProcess END");
  if (isSetUp) WaitForever();
}

void wmiEndProcess() {
  Log(L"[wWinMain] wmiEndProcess START");
  HoldSubscription();
  WaitForever();
}

}  // namespace

bool StartProcessStopWatch() {
  return StartThread(L"process stops", wmiEndProcess);
}

}  // namespace tessaview

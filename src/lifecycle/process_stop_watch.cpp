#include "core/log_format.h"
#include "core/trace_log.h"
#include "lifecycle/ui_watchdog.h"
#include "lifecycle/watches.h"
#include "os/kernel_objects.h"
#include "os/process_stops.h"
#include "os/threads.h"
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
    if (!joined_) os::WriteDebugText(L"Failed to initialize COM library\n");
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
    return false;
  }
  watch.locator = std::move(*locator);
  auto services = os::ConnectToManagement(watch.locator, kNamespace);
  if (!services) {
    os::WriteDebugText(L"Could not connect. Error code\n");
    return false;
  }
  os::WriteDebugText(L"Connected to ROOT\\CIMV2 WMI namespace\n");
  watch.services = std::move(*services);
  return true;
}

bool SetUp(Watch& watch) {
  if (!os::InitializeComSecurity()) {
    os::WriteDebugText(L"Failed to initialize security\n");
    return false;
  }
  if (!Connect(watch)) return false;
  (void)os::SetManagementBlanket(watch.services);  // the query tells whether the services can be asked
  auto subscription = os::SubscribeToProcessStops(watch.services, kQuery, kEvents);
  if (!subscription) {
    os::WriteDebugText(L"ExecNotificationQueryAsync failed\n");
    return false;
  }
  watch.subscription = std::move(*subscription);
  return true;
}

/// Nobody signals this event: whoever waits for it lives as long as the process.
void WaitForever() {
  (void)os::AwaitEvent(os::NewEvent());
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
  return os::StartThread(L"process stops", wmiEndProcess);
}

}  // namespace tessaview

#include "core/log_failure.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "lifecycle/watches.h"
#include "os/power.h"
#include "os/watches.h"
#include "power/firmware.h"
#include "power/lid_actions.h"
#include "power/settings.h"
#include "touch/device_reset.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

/// The system tells a program that it resumed, not from what. Its log has it: the kernel writes event 107 with the
/// state it woke from, and 5 is hibernation (PowerSystemHibernate).
constexpr const wchar_t* kResumedFromHibernation =
    L"*[System[Provider[@Name='Microsoft-Windows-Kernel-Power'] and EventID=107] and "
    L"EventData[Data[@Name='TargetState']='5' or Data[@Name='WakeFromState']='5']]";

/// As the system says now: what was noted of the power source may be from before the machine slept.
bool IsOnMains() {
  const auto status = os::QueryPowerStatus();
  return status && status->acLineStatus != kOnBattery;
}

void OnResumed() {
  Log(L"[Resume] Back from hibernation \n");
  InitialDisplay();
  const bool isG2 = InitGenerationCheck() == Generation::G2;
  ResetTouchDevices();
  if (isG2) LidClosedAction(IsOnMains());
  TellUi(texts::kIAmBack);
}

}  // namespace

void StartResumeWatch() {
  StartThread(L"resume", [] {
    LogFailure(L"The system's log cannot be watched", os::WatchSystemLog(kResumedFromHibernation, OnResumed));
  });
}

}  // namespace tessaview

#include <cstdint>
#include <memory>

#include "core/trace_log.h"
#include "display/panel_geometry.h"
#include "lifecycle/watches.h"
#include "os/power.h"
#include "os/threads.h"
#include "os/watches.h"
#include "power/firmware.h"
#include "power/lid_actions.h"
#include "power/panel_power.h"
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

/// All that does not wait for the touch controller.
void OnResumed(os::Semaphore& owedResets) {
  Log(L"[Resume] Back from hibernation \n");
  InitialDisplay();
  const bool isG2 = InitGenerationCheck() == Generation::G2;
  if (isG2) LidClosedAction(IsOnMains());
  owedResets.Post();
  TellUi(texts::kIAmBack);
}

/// The reset waits for the controller, without a time limit. Coming back it is a touch screen: with the panel off it
/// has to be told again to be a touch pad.
void BringTouchBack() {
  ResetTouchDevices();
  ApplyIniPowerStatus();
}

}  // namespace

void StartResumeWatch() {
  constexpr std::uint32_t kMostWaiting = 1;  // one reset serves all resumes that came before it
  const auto owed = std::make_shared<os::Semaphore>(kMostWaiting);
  os::StartThread(L"touch reset", [owed] {
    while (owed->Wait()) BringTouchBack();
  });
  os::StartThread(L"resume", [owed] { os::WatchSystemLog(kResumedFromHibernation, [owed] { OnResumed(*owed); }); });
}

}  // namespace tessaview

#include "power/win_p_watch.h"

#include "core/input_hooks.h"
#include "core/log_failure.h"
#include "core/noted_events.h"
#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "os/hooks.h"
#include "os/input.h"
#include "os/trace.h"
#include "power/firmware.h"
#include "power/mode_reset.h"
#include "power/settings_file.h"

namespace tessaview {
namespace {

Shared<bool> Win_P_WindowMoveFlag;

void BringWantedPanelBack(std::uint32_t status) {
  Log(L"[Win + P] Tessaview Status = 0x%X \n", status);
  if (status != kPanelPresentAndOff) return;
  Log(L"Setting path =  %ls \n ", gSettingsPath());
  if (ReadSavedPower() != SavedPower::On) return;
  Log(L"[Win + P] Read ini file , power status = on \n");
  Log(L"[Win + P] Set TessaviewPowerControl(TRUE) \n");
  Win_P_WindowMoveFlag.set(true);
  ReSetTessaviewMode();
}

void OnWinP() {
  os::WriteDebugText(L"Win + P key \n");
  Log(L"[Win + P] -------- Start -------- \n");
  const FirmwareSequence firmware;
  if (const auto status = FirmwareDSTS(firmware, FirmwareId::PanelPower)) BringWantedPanelBack(*status);
  Log(L"[Win + P] -------- End -------- \n");
}

}  // namespace

bool ClaimWin_P_WindowMoveFlag() {
  return Win_P_WindowMoveFlag.exchange(false);
}

void StartWinPWatch() {
  // A press and its release may wait. A key that is held repeats its press; the repetitions would do the same again.
  constexpr std::uint32_t kMostWaiting = 2;
  StartThread(L"keyboard", [] {
    const auto onKey = [](std::uint32_t virtualKey) {
      NoteHookCalled(os::InputHook::Keyboard);
      if (virtualKey == os::kKeyP && os::IsKeyDown(os::kKeyLeftWindows)) DealLaterAtMost(kMostWaiting, OnWinP);
    };
    LogFailure(L"The keyboard cannot be watched", os::WatchKeyboard(onKey));
  });
}

}  // namespace tessaview

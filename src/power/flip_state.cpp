#include "power/flip_state.h"

#include "core/state.h"
#include "core/trace_log.h"
#include "power/firmware.h"
#include "power/panel_power.h"
#include "power/panel_status.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kFoldedOver = 0x1;

MainThreadOnly<bool> gIsValid;

}  // namespace

bool gFlipInfoValid() {
  return *gIsValid;
}

void OnFlipStateChanged() {
  const FirmwareSequence firmware;
  const auto state = FirmwareDSTS(firmware, FirmwareId::FlipState);
  if (!state) return;
  *gIsValid = true;
  if ((*state & kFoldedOver) != 0) {
    Log(L"[DisplayChange] Filp Mode \n");
    Log(L"[DisplayChange] Send message to UI : POWEROFF \n");
    TellPanelOff();
  } else {
    Log(L"[DisplayChange] NB Mode \n");
    ApplyIniPowerStatus();
  }
}

}  // namespace tessaview

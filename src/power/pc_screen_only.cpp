#include "power/pc_screen_only.h"

#include "core/trace_log.h"
#include "display/display_query.h"
#include "power/firmware.h"
#include "power/panel_status.h"
#include "touch/touch_pad.h"

namespace tessaview {
namespace {

void PowerOffOnly() {
  const FirmwareSequence firmware;
  if (FirmwareDEVS(firmware, FirmwareId::PanelPower, 0)) Log(L"Tessaview power off \n");
}

}  // namespace

void PowerOffWhenPcScreenOnly() {
  if (InitGenerationCheck() != Generation::G1) return;
  if (CurrentTopology() != os::Topology::Internal) return;
  Log(L"Win + P = INTERNAL Mode (PC screen only) \n");
  PowerOffOnly();
  TellPanelOff();
  Log(L"Set cursor mode \n");
  SetModetoTouchPad();
}

}  // namespace tessaview

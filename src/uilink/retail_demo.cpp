#include "uilink/retail_demo.h"

#include "core/factory_config.h"
#include "core/named_events.h"
#include "core/service_timers.h"
#include "core/trace_log.h"
#include "display/mode_reset.h"
#include "display/projection_mode.h"
#include "lifecycle/ui_activation.h"
#include "os/clock.h"
#include "os/input.h"
#include "uilink/hot_key_component.h"

namespace tessaview {

void FollowDisplaysInRetailDemo() {
  if (!IsRetailDemoServiceRunning()) return;
  Log(L"RDX Mode \n");
  if (isCloneMode.get()) StartRetailDemoCloneTimer();
  if (!isExtendMode.get()) return;
  StopRetailDemoCloneTimer();
  StartUiLaunchThread();
}

// A click wakes the display and ends whatever the demo shows meanwhile.

void OnRetailDemoTimer() {
  StopRetailDemoTimer();
  os::ClickLeftButton();
  ReSetTessaviewMode();
  RequestTouchPadOn();
  SetPowerEvent();
  ResetSwitchingEvent();
}

void OnRetailDemoCloneTimer() {
  constexpr std::uint32_t kWakeMs = 2000;
  StopRetailDemoCloneTimer();
  os::ClickLeftButton();
  os::Sleep(kWakeMs);
  SetExtend();
  StartUiLaunchThread();
}

}  // namespace tessaview

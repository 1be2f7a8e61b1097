#include "core/factory_config.h"
#include "core/service_window.h"
#include "core/trace_log.h"
#include "display/projection_mode.h"
#include "lifecycle/ui_activation.h"
#include "os/clock.h"
#include "os/input.h"
#include "power/hot_key_component.h"
#include "power/mode_reset.h"
#include "power/named_events.h"
#include "uilink/events/events.h"

namespace tessaview {

void FollowDisplaysInRetailDemo() {
  if (!IsRetailDemoServiceRunning()) return;
  Log(L"RDX Mode \n");
  if (isCloneMode()) StartServiceTimer(ServiceTimer::RetailDemoClone);
  if (!isExtendMode()) return;
  StopServiceTimer(ServiceTimer::RetailDemoClone);
  StartUiLaunchThread();
}

// A click wakes the display and ends whatever the demo shows meanwhile.

void OnRetailDemoTimer() {
  StopServiceTimer(ServiceTimer::RetailDemo);
  os::ClickLeftButton();
  ReSetTessaviewMode();
  RequestTouchPadOn();
  SetPowerEvent();
  ResetSwitchingEvent();
}

void OnRetailDemoCloneTimer() {
  constexpr std::uint32_t kWakeMs = 2000;
  StopServiceTimer(ServiceTimer::RetailDemoClone);
  os::ClickLeftButton();
  os::Sleep(kWakeMs);
  SetExtend();
  StartUiLaunchThread();
}

}  // namespace tessaview

#include "power/lid_actions.h"

#include <cstdint>
#include <optional>

#include "core/state.h"
#include "core/trace_log.h"
#include "display/panel_nudge.h"
#include "display/virtual_monitor.h"
#include "os/power.h"
#include "power/firmware.h"
#include "uilink/channel/ui_channel.h"

namespace tessaview {
namespace {

// What closing the lid does, in a power scheme.
constexpr std::uint32_t kNothing = 0, kSleep = 1, kHibernate = 2, kShutDown = 3;

/// The action of the scheme in force; none when it cannot be read. `tag` begins each log line.
std::optional<std::uint32_t> LidCloseActionInForce(const wchar_t* tag, bool onMains) {
  Log(L"[%ls] Lid open move C Panel monitor one pixel start", tag);
  const auto scheme = os::ActivePowerScheme();
  if (!scheme) {
    Log(L"[%ls] PowerGetActiveScheme error=%d\n", tag, scheme.error());
    return std::nullopt;
  }
  if (onMains) {
    Log(L"[%ls] is AC mode -> PowerReadACValueIndex", tag);
  } else {
    Log(L"[%ls] is DC mode -> PowerReadDCValueIndex", tag);
  }
  const auto action = os::LidCloseActionOf(*scheme, onMains);
  if (!action) {
    Log(L"[%ls] PowerReadAC/DCValueIndex error=%d\n", tag, action.error());
    return std::nullopt;
  }
  return *action;
}

void LogAction(const wchar_t* tag, std::uint32_t action) {
  switch (action) {
    case kNothing:
      return Log(L"[%ls] Lid off - Do nothing\n", tag);
    case kSleep:
      return Log(L"[%ls] Lid off - Sleep\n", tag);
    case kHibernate:
      return Log(L"[%ls] Lid off - Hibernate\n", tag);
    case kShutDown:
      return Log(L"[%ls] Lid off - Shut-down\n", tag);
    default:
      return Log(L"[%ls] Lid off - Unknown value = %d\n", tag, action);
  }
}

MainThreadOnly<bool> gDoNothing;

}  // namespace

bool gLidDoNothing() {
  return *gDoNothing;
}

void SetLidDoNothing(bool doNothing) {
  *gDoNothing = doNothing;
  SendLidCloseActionSetting(doNothing);
}

void SendLidCloseActionSetting(bool doNothing) {
  if (doNothing) {
    Log(L"[SendLidCloseActionSetting] Send BIOS WMI: lid close action is do nothing.");
  } else {
    Log(L"[SendLidCloseActionSetting] Send BIOS WMI: lid close action is not do nothing.");
  }
  const FirmwareSequence firmware;
  if (!FirmwareDEVS(firmware, FirmwareId::LidCloseAction, doNothing ? 0 : 1)) return;
  if (doNothing) {  // readers of the log know both lines by this tag
    Log(L"[TessaviewPowerControl] Tessaview Power Off (Set 0x00050035, 0x00) \n ");
  } else {
    Log(L"[TessaviewPowerControl] Tessaview Power Off (Set 0x00050035, 0x01) \n ");
  }
}

void LidClosedAction(bool onMains) {
  constexpr auto kTag = L"LidClosedAction";
  const auto action = LidCloseActionInForce(kTag, onMains);
  if (!action) return;
  LogAction(kTag, *action);
  if (*action <= kShutDown) SendLidCloseActionSetting(*action == kNothing);
}

void LidOpenMoveCPanelMonitorOnePixel(bool onMains) {
  constexpr auto kTag = L"LidOpenMoveCPanelMonitorOnePixel";
  const auto action = LidCloseActionInForce(kTag, onMains);
  if (!action) return;
  LogAction(kTag, *action);
  if (*action != kNothing) return;
  if (CheckVirtualMonitor()) {
    Log(L"[LidOpenMoveCPanelMonitorOnePixel] Virtual monitor\n");
    MoveCPanelMonitorOnePixel();
  } else {
    Log(L"[LidOpenMoveCPanelMonitorOnePixel] No virtual monitor, send message to UI.\n");
    TellUi(texts::kSetWallpaper);
  }
}

}  // namespace tessaview

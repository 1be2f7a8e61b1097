#include "day/telling.h"

#include <algorithm>
#include <array>

namespace lab {
namespace {

/// Trace lines that tell something, by how they begin.
constexpr std::array<std::wstring_view, 50> kTellingLines{
    L" ******* Start",
    L" ******* NorvTessaview",
    L"******* Launch",
    L"******* isTessaviewPowerOn",
    L"[PackageWatch]",
    L"[DesktopSwitch]",
    L"[Resume]",
    L"WM_DISPLAYCHANGE",
    L"[CheckCPanel_Position_Orientation]",
    L"[Timestamp] Extend",
    L"[SendLidCloseActionSetting]",
    L"[DisplayChange] NB",
    L"[InitGenerationCheck]",
    L"Enable Device",
    L"Find TouchPad",
    L"Get Rawinput hDevice",
    L" Create ini file success",
    L"Read ini file",
    L"[TessaviewPowerControl] Tessaview Power",
    L"[TessaviewPowerControl] Tessaview Backlight",
    L"[TessaviewPowerControl] Set ini",
    L"[TessaviewPowerControl] Set Cursor",
    L"[Update_UI_Status] Send",
    L" No Found Package",
    L" Found Package",
    L" PackageCheck Fail",
    L" CreateProcessWithUserLevel Fail",
    L" Launch UWP",
    L"AppActivationMgr",
    L"The computer is powered",
    L"Battery saver is",
    L"Touchpad status",
    L"Receivedata",
    L"UI set BacklightValue",
    L"[Power Saving] ",
    L"[DisplayChange]",
    L"Win + P",
    L"[Window Mover] EVENT",
    L"[Window Mover] Hover",
    L"[Window Mover] Trigger",
    L"[Window Mover] Move",
    L"[Window Mover On C Panel] Hover",
    L"Send to ",
    L"BPanelDisplayFrequency",
    L"[SetFPS]",
    L"Success!! Set",
    L"Failed!! Set",
    L"----- F6",
    L"----------------- F6",
    L"----------------- TESSAVIEW_POWER",
};

}  // namespace

bool IsTelling(std::wstring_view who, std::wstring_view line) {
  if (who == L"firmware") return line.starts_with(L"DEVS");
  if (who != L"controller") return true;
  return std::any_of(kTellingLines.begin(), kTellingLines.end(),
                     [&](std::wstring_view beginning) { return line.starts_with(beginning); });
}

}  // namespace lab
